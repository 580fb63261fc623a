#pragma once

#include "platform/xml/XmlDocument.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvex {

class RegisterObject;

/// The registers of a data file by the address of their list and by name. It is made once for all values: a search of
/// the list for each register would take minutes for a large board. Valid while the document lives.
class RegisterElements {
public:
    explicit RegisterElements(XmlElement root);

    /// Stores the register's value in its element; a register that its list does not hold is passed over. Raises 101
    /// when the file has no list with the register's base address.
    void StoreValue(const RegisterObject& object) const;

private:
    using ByName = std::unordered_map<std::string_view, XmlElement>;

    void Add(XmlElement component);

    std::unordered_map<std::string_view, ByName> lists_;
};

}

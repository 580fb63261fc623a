#pragma once

#include "comm/api/IDevice.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

class RegisterObject;

/// A named selection of bits of one register. It holds no values: all it reports is read from its register, which the
/// controller owns. A new bitset has no name, no positions and no register; Init makes it usable.
class Bitset {
public:
    /// Selects the positions of a bit string in list form that lie within the register, each once, in ascending
    /// order. A bad bit string raises 0x80040064, one that selects nothing raises 9; both leave the bitset as it was.
    void Init(std::string name, std::shared_ptr<RegisterObject> parent, std::string_view bitString);

    const std::string& Name() const { return name_; }
    std::int16_t Count() const { return static_cast<std::int16_t>(positions_.size()); }
    /// The register's name. Needs Init, as do all that follow; else 9 is raised.
    const std::string& ParentRegister() const;

    /// State of the register bit behind bitset bit `index`; raises 9 outside 0 to Count - 1, as do the next two.
    bool GetBitValue(std::int16_t index) const;
    std::int16_t GetBitFlags(std::int16_t index) const;
    std::int16_t GetBitParentIndex(std::int16_t index) const;

    /// The selected bits' value, in their register positions (not shifted down). Raises 6 above 16 bits signed.
    std::int16_t GetValue() const;

    /// Transfers the whole register and its dependencies; returns the register's value. Device errors reach the caller.
    std::int32_t ReadBitsetValue(IDevice& device);
    std::int32_t WriteBitsetValue(IDevice& device);

private:
    RegisterObject& Parent(const char* source) const;

    std::string name_;
    std::shared_ptr<RegisterObject> parent_;
    std::vector<std::uint8_t> positions_;
};

}

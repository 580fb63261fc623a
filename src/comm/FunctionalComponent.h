#pragma once

#include "platform/xml/XmlDocument.h"

#include <string>
#include <vector>

namespace tarvex {

/// Reads product names and links from elements of the init file.
class FunctionalComponent {
public:
    /// The `name` of each Product child of an Option element, in order; none for any other element.
    static std::vector<std::string> ParseProducts(XmlElement element);
    /// The Name of each CommLink child of a Product element, in order; none for any other element.
    static std::vector<std::string> GetProductCommLinks(XmlElement element);
};

}

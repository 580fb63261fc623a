#pragma once

#include "platform/xml/XmlDocument.h"

#include <string>
#include <string_view>

namespace tarvex {

/// Where an element of the document stands in the text that the document was loaded from: "line 4, column 1". Empty
/// when the text does not hold it, as text in another encoding than UTF-8.
std::string PlaceOf(const XmlElement& element, const XmlDocument& document, std::string_view text);

}

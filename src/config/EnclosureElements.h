#pragma once

#include "comm/IProduct.h"
#include "platform/xml/XmlDocument.h"

#include <cstdint>
#include <string_view>

namespace tarvex {

// Where a data file keeps what belongs to enclosures. Each search answers none when there is no such element.

inline constexpr const char* kEnclosureTag = "EnclosureData";
inline constexpr const char* kRegisterValueTag = "RegisterValue";

/// The first child with the tag whose attribute is exactly this text.
XmlElement FindChild(XmlElement parent, std::string_view tag, std::string_view attribute, std::string_view text);

/// As FindChild; adds a child with that attribute when there is none.
XmlElement FindOrAddChild(XmlElement parent, std::string_view tag, std::string_view attribute, std::string_view text);

/// The enclosure with this network address, in whatever hexadecimal form the file gives it.
XmlElement FindEnclosure(XmlElement root, std::int32_t address);

/// "Source" or "Destination"; empty for both, which no single element stands for.
std::string_view SideTag(ChannelDirection direction);

}

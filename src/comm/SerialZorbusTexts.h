#pragma once

#include "platform/zorbus/CommSettings.h"
#include "platform/zorbus/NodeRecord.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tarvex {

/// The name of an enclosure type code; empty for one without a name.
std::string EnclosureTypeName(std::int32_t typeCode);

/// How a node is shown and named: type, blank, name and id, as in Kestra Rack A (0x1A2B).
std::string BrowseString(const NodeRecord& record);

/// The text between the parenthesis of the id and the closing one; none without the opening one, and where
/// `needsEnd` is set without the closing one. A node's own name may hold such an id, too: the last one counts.
std::optional<std::string> IdTextOf(const std::string& browseString, bool needsEnd);

/// As in Serial Port:COM_1:9600:True.
std::string SettingsText(const CommSettings& settings);

}

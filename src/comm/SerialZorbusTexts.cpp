#include "comm/SerialZorbusTexts.h"

#include "base/Numbers.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace tarvex {

namespace {

constexpr std::array<const char*, 5> kTypeNames{"Vantora", "Kestra", "Dravel", "6K-2000", "Lumera"};
constexpr std::string_view kIdStart = "(0x";

}

std::string EnclosureTypeName(std::int32_t typeCode)
{
    const bool isNamed = typeCode >= 0 && static_cast<std::size_t>(typeCode) < kTypeNames.size();
    return isNamed ? kTypeNames[static_cast<std::size_t>(typeCode)] : "";
}

std::string BrowseString(const NodeRecord& record)
{
    return EnclosureTypeName(record.enclosureType) + " " + record.name + " (0x" + ToHex(record.nodeId) + ")";
}

std::optional<std::string> IdTextOf(const std::string& browseString, bool needsEnd)
{
    const std::size_t found = browseString.rfind(kIdStart);
    if (found == std::string::npos)
        return std::nullopt;
    const std::size_t start = found + kIdStart.size();
    const std::size_t end = browseString.find(')', start);
    if (end == std::string::npos && needsEnd)
        return std::nullopt;
    return browseString.substr(start, end == std::string::npos ? end : end - start);
}

std::string SettingsText(const CommSettings& settings)
{
    return "Serial Port:COM_" + std::to_string(settings.comPort) + ":" + std::to_string(settings.baudRate) + ":" +
           (settings.keepLinkOpen ? "True" : "False");
}

}

#include "comm/dialogs/SerialSettingsRules.h"

#include <algorithm>

namespace tarvex {

std::optional<int> PortPosition(std::int32_t comPort)
{
    return comPort >= 1 && comPort <= kPortChoices ? std::optional(comPort - 1) : std::nullopt;
}

std::optional<int> BaudPosition(std::int32_t baudRate)
{
    const auto found = std::find(kBaudRates.begin(), kBaudRates.end(), baudRate);
    return found != kBaudRates.end() ? std::optional(static_cast<int>(found - kBaudRates.begin())) : std::nullopt;
}

std::string PortEntry(std::int32_t comPort) { return "COM " + std::to_string(comPort); }

std::string PortInUse(const CommSettings& settings) { return "COM" + std::to_string(settings.comPort); }

std::string BaudInUse(const CommSettings& settings) { return std::to_string(settings.baudRate) + "  Baud"; }

std::string ElapsedText(std::int64_t seconds, bool cancelled)
{
    return (cancelled ? "Stopping... " : "") + std::to_string(seconds) + " s";
}

}

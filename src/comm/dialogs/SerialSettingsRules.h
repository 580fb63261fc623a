#pragma once

#include "platform/zorbus/CommSettings.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace tarvex {

/// The ports 1 to 16 and the baud rates that can be chosen, in the order of their lists.
inline constexpr int kPortChoices = 16;
inline constexpr std::array<std::int32_t, 4> kBaudRates = {9600, 19200, 38400, 57600};

/// Position in its list, from 0; none when it is no choice.
std::optional<int> PortPosition(std::int32_t comPort);
std::optional<int> BaudPosition(std::int32_t baudRate);

/// "COM 3", an entry of the list of ports.
std::string PortEntry(std::int32_t comPort);

/// The settings in use, as the troubleshooting window shows them: "COM3" and "9600  Baud".
std::string PortInUse(const CommSettings& settings);
std::string BaudInUse(const CommSettings& settings);

/// How long a search has gone on, and whether it is being given up.
std::string ElapsedText(std::int64_t seconds, bool cancelled);

}

#pragma once

#include <cstdint>
#include <string>

namespace tarvex {

/// The settings of a serial port, handed between preferences, dialogs and the serial network link.
struct CommSettings {
    std::int32_t kind = 0; ///< 1 = serial port, the only kind that a link accepts
    std::int32_t baudRate = 9600;
    std::string text;
    bool keepLinkOpen = true;
    std::int16_t comPort = 1;
    std::int32_t value = 0;
};

inline constexpr std::int32_t kSerialPortKind = 1;

}

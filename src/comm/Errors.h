#pragma once

#include <cstdint>

namespace tarvex {

// What the links to boards raise.
inline constexpr std::int32_t kErrHidSystem = 301;     ///< the system does not tell about its HID devices
inline constexpr std::int32_t kErrPacketTooLong = 302; ///< a packet does not fit into a report of the board
inline constexpr std::int32_t kErrNotConnected = 303;
inline constexpr std::int32_t kErrNoNetworkLibrary = 304;
inline constexpr std::int32_t kErrUnexpectedAspi = 305; ///< also a missing one, where one is needed
inline constexpr std::int32_t kErrBrowseString = 900;   ///< names no node
inline constexpr std::int32_t kErrSettingKind = 902;    ///< settings of something other than a serial port

// What register packets raise.
inline constexpr std::int32_t kErrParameterId = 700;
inline constexpr std::int32_t kErrProcessorId = 701;
inline constexpr std::int32_t kErrTooMuchData = 702;
inline constexpr std::int32_t kErrNoData = 703;
inline constexpr std::int32_t kErrDataWidth = 704;

}

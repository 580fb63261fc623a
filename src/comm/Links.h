#pragma once

#include <cstdint>

namespace tarvex {

// The links, by the names by which they are chosen. Each but the demo board's calls itself so, too.
inline constexpr const char* kHidDeviceType = "USB-HID Device";
inline constexpr const char* kSerialDeviceType = "SerialZorbus";
inline constexpr const char* kDemoLink = "Demo";

/// What the demo board calls itself.
inline constexpr const char* kDemoDeviceType = "Demo device";

/// The maker's vendor id: that of all boards on USB, and what every node on the serial network counts as.
inline constexpr std::int32_t kVendorId = 0x12C5;

}

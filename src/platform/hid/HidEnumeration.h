#pragma once

#include "platform/hid/IHidServices.h"

namespace tarvex {

/// The HID interfaces of USB devices that are present now, each node once; none when the HID library cannot be used.
std::optional<std::vector<HidInterface>> PresentHidInterfaces();

}

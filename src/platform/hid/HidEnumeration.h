#pragma once

#include "platform/hid/IHidServices.h"

namespace tarvex {

/// The HID interfaces that are present now, each node once; none when the HID library cannot be used. Takes up to 40
/// ms.
std::optional<std::vector<HidInterface>> PresentHidInterfaces();

}

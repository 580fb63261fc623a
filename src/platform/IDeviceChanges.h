#pragma once

#include <functional>

namespace tarvex {

/// Tells of HID devices that come and go.
class IDeviceChanges {
public:
    virtual ~IDeviceChanges() = default;

    /// Calls `changed` on the caller's thread, from its event loop, after any HID device came or went; replaces an
    /// earlier one. Where the system tells nothing, it is never called.
    virtual void Watch(std::function<void()> changed) = 0;
};

}

#pragma once

#include "platform/IDeviceChanges.h"
#include "platform/hid/UdevMonitor.h"

#include <QSocketNotifier>

#include <memory>

namespace tarvex {

/// Tells of HID devices that come and go, out of the event loop of the thread that watches.
class DeviceChanges : public IDeviceChanges {
public:
    void Watch(std::function<void()> changed) override;

private:
    void OnNews();

    UdevMonitor monitor_;
    std::function<void()> changed_;
    std::unique_ptr<QSocketNotifier> notifier_; // goes before the descriptor that it watches
};

}

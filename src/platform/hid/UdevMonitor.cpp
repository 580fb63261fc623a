#include "platform/hid/UdevMonitor.h"

#include <cerrno>
#include <libudev.h>
#include <string_view>
#include <unistd.h>

namespace tarvex {

namespace {

/// Without a device manager its news is never sent, though it can be asked for.
const char* Source() { return access("/run/udev/control", F_OK) == 0 ? "udev" : "kernel"; }

bool IsComingOrGoing(udev_device* device)
{
    const char* action = udev_device_get_action(device);
    const std::string_view name = action ? action : "";
    return name == "add" || name == "remove";
}

}

UdevMonitor::UdevMonitor() : udev_(udev_new(), udev_unref), monitor_(nullptr, udev_monitor_unref)
{
    if (udev_)
        monitor_.reset(udev_monitor_new_from_netlink(udev_.get(), Source()));
    if (monitor_ && (udev_monitor_filter_add_match_subsystem_devtype(monitor_.get(), "hidraw", nullptr) < 0 ||
                     udev_monitor_enable_receiving(monitor_.get()) < 0))
        monitor_.reset();
}

int UdevMonitor::Number() const { return monitor_ ? udev_monitor_get_fd(monitor_.get()) : -1; }

bool UdevMonitor::Drain() noexcept
{
    bool changed = false;
    while (monitor_) {
        errno = 0;
        const std::unique_ptr<udev_device, decltype(&udev_device_unref)> device(
            udev_monitor_receive_device(monitor_.get()), udev_device_unref);
        if (device)
            changed = IsComingOrGoing(device.get()) || changed;
        else if (errno == ENOBUFS) // news was lost
            changed = true;
        else
            break;
    }
    return changed;
}

}

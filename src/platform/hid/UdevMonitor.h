#pragma once

#include <memory>

struct udev;
struct udev_monitor;

namespace tarvex {

/// The system's news of hidraw nodes that come and go. News is taken after the rules have set the rights of a node;
/// where no device manager runs, the kernel's own.
class UdevMonitor {
public:
    UdevMonitor();
    /// Becomes readable when there is news; -1 when the system gives none.
    int Number() const;
    /// Takes all news that wait, without waiting itself; true when any of it is of a node that came or went.
    bool Drain() noexcept;

private:
    std::unique_ptr<udev, udev* (*)(udev*)> udev_;
    std::unique_ptr<udev_monitor, udev_monitor* (*)(udev_monitor*)> monitor_;
};

}

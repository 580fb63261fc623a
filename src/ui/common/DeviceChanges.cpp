#include "ui/common/DeviceChanges.h"

#include "ui/common/Guarded.h"

namespace tarvex {

void DeviceChanges::Watch(std::function<void()> changed)
{
    changed_ = std::move(changed);
    if (notifier_ || monitor_.Number() < 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(monitor_.Number(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { OnNews(); });
}

/// News is taken outside the guard: left where it is, it would wake the event loop again at once.
void DeviceChanges::OnNews()
{
    if (!monitor_.Drain() || !changed_)
        return;
    Guarded([changed = changed_] { changed(); }); // a copy: it may watch anew
}

}

#include "ui/common/BusyState.h"

#include "ui/common/Guarded.h"

#include <QApplication>
#include <QTimer>

namespace tarvex {

void BusyState::WhenIdle(const std::string& kind, std::function<void()> action)
{
    Forget(kind);
    if (IsBusy())
        waiting_.emplace_back(kind, std::move(action));
    else
        action();
}

void BusyState::Enter()
{
    if (depth_++ > 0)
        return;
    cancelled_ = false;
    gate_.Close();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    Announce(true);
}

void BusyState::Leave() noexcept
{
    if (--depth_ > 0)
        return;
    QApplication::restoreOverrideCursor();
    gate_.Open();
    Announce(false);
    if (!waiting_.empty()) // not from here: a guard's destructor must not begin new work
        QTimer::singleShot(0, &gate_, [this] { RunWaiting(); });
}

void BusyState::Announce(bool busy) noexcept
{
    Contained([&] { Changed.Raise(busy); });
}

void BusyState::RunWaiting() noexcept
{
    while (!IsBusy() && !waiting_.empty()) {
        const auto action = std::move(waiting_.front().second);
        waiting_.erase(waiting_.begin());
        Guarded(action);
    }
}

void BusyState::Forget(const std::string& kind)
{
    std::erase_if(waiting_, [&kind](const auto& waiting) { return waiting.first == kind; });
}

}

#include "ui/common/QtWait.h"

#include "ui/common/Guarded.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimer>

namespace tarvex {

namespace {

constexpr std::chrono::milliseconds kFrame{16};

/// One pass of the event loop. What an unguarded handler throws is logged here: the caller may hold a call that another
/// thread still works on.
void ProcessEvents(QEventLoop::ProcessEventsFlags flags) noexcept
{
    Contained([flags] { QCoreApplication::processEvents(flags); });
}

}

void QtWait::Pause(std::chrono::milliseconds duration)
{
    ThroughQt([this, duration] {
        bool over = false;
        QTimer timer;
        timer.setTimerType(Qt::PreciseTimer);
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, &timer, [&over] { over = true; });
        timer.start(duration);
        LetWindowsLive([&over] { return over || ExitState::Pending(); });
    });
}

void QtWait::Until(IPendingCall& call)
{
    const auto left = FrameLeft();
    if (left.count() > 0 && call.WaitFor(left))
        return;
    if (left.count() <= 0 && call.WaitFor(std::chrono::milliseconds(1))) { // a long run of fast calls
        OnePass();
        return;
    }
    auto* dispatcher = QAbstractEventDispatcher::instance();
    call.OnDone([dispatcher] { dispatcher->wakeUp(); }); // wakeUp may be called on any thread
    LetWindowsLive([&call] { return call.IsDone(); });
}

void QtWait::Breathe()
{
    ThroughQt([this] {
        if (FrameLeft().count() <= 0)
            OnePass();
    });
}

std::chrono::milliseconds QtWait::FrameLeft() const
{
    return kFrame - std::chrono::milliseconds(sinceLastPass_.elapsed());
}

/// processEvents and not an event loop of its own: after a request to end the program a nested loop would return at
/// once, but a call that is under way must be waited for to its end.
template <class Done> void QtWait::LetWindowsLive(Done done) noexcept
{
    const BusyGuard guard(busy_);
    while (!done())
        ProcessEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    sinceLastPass_.restart();
}

void QtWait::OnePass() noexcept
{
    const BusyGuard guard(busy_);
    ProcessEvents(QEventLoop::AllEvents);
    sinceLastPass_.restart();
}

}

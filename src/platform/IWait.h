#pragma once

#include <chrono>
#include <functional>

namespace tarvex {

/// One blocking call that runs on another thread while the caller waits.
class IPendingCall {
public:
    virtual ~IPendingCall() = default;

    /// Waits at most this long; true when the call is done.
    virtual bool WaitFor(std::chrono::milliseconds limit) = 0;
    virtual bool IsDone() = 0;
    /// Calls `wake` once when the call is done: at once, or later on the other thread.
    virtual void OnDone(std::function<void()> wake) = 0;
};

/// Everything in the program that waits, waits here, so that a window stays alive meanwhile and tests need no time.
class IWait {
public:
    virtual ~IWait() = default;

    /// Lets the given time pass.
    virtual void Pause(std::chrono::milliseconds duration) = 0;
    /// Returns only when the call is done; never throws.
    virtual void Until(IPendingCall& call) = 0;
    /// Lets what is due happen (painting, timers, the Escape key) without waiting for anything.
    virtual void Breathe() = 0;
    /// True once the user pressed Escape during the sequence of transfers that runs now.
    virtual bool Cancelled() const = 0;
};

}

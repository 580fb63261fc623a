#pragma once

#include "base/Event.h"
#include "ui/common/InputGate.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tarvex {

/// Whether a sequence of transfers runs. While it does, all user input but Escape is swallowed, a close from outside is
/// kept back, and actions of timers and device changes that would touch the board wait. One per program, owned by main.
class BusyState {
public:
    BusyState() = default;
    BusyState(const BusyState&) = delete;
    BusyState& operator=(const BusyState&) = delete;

    bool IsBusy() const { return depth_ > 0; }
    /// Asks the sequence that runs now to stop early, as Escape does.
    void Cancel() { cancelled_ = IsBusy(); }
    /// True once Escape was pressed, or Cancel called, during the sequence that runs now.
    bool Cancelled() const { return IsBusy() && (cancelled_ || gate_.EscapePressed()); }
    /// Runs the action now, or soon after the sequence that runs now has ended; of each kind only the last one waits.
    /// Errors of an action that runs now reach the caller; those of one that waited are logged and shown.
    void WhenIdle(const std::string& kind, std::function<void()> action);
    /// True when work began, false when it ended: the windows switch their menus with it. Errors of its handlers are
    /// logged and go no further.
    Event<BusyState, bool> Changed;

private:
    friend class BusyGuard;
    void Enter();
    void Leave() noexcept;
    void Announce(bool busy) noexcept;
    void RunWaiting() noexcept;
    void Forget(const std::string& kind);

    int depth_ = 0;
    bool cancelled_ = false;
    InputGate gate_;
    std::vector<std::pair<std::string, std::function<void()>>> waiting_; // in the order in which they were asked for
};

/// Stands around every sequence of transfers: hourglass pointer, menus off, no other input. May be nested.
class BusyGuard {
public:
    explicit BusyGuard(BusyState& state) : state_(state) { state_.Enter(); }
    ~BusyGuard() { state_.Leave(); }
    BusyGuard(const BusyGuard&) = delete;
    BusyGuard& operator=(const BusyGuard&) = delete;

private:
    BusyState& state_;
};

}

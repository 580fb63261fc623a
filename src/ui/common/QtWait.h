#pragma once

#include "platform/IWait.h"
#include "ui/common/BusyState.h"

#include <QElapsedTimer>

namespace tarvex {

/// Waits that keep the windows alive: painting, timers and the Escape key go on, about once in a frame of 16 ms. While
/// they do, the program counts as busy. For the thread of the windows only.
class QtWait : public IWait {
public:
    explicit QtWait(BusyState& busy) : busy_(busy) { sinceLastPass_.start(); }

    /// A request to end the program ends the pause early and is carried on.
    void Pause(std::chrono::milliseconds duration) override;
    /// A request to end the program that is made meanwhile is carried on by the next Breathe or Pause.
    void Until(IPendingCall& call) override;
    /// Carries on a request to end the program.
    void Breathe() override;
    bool Cancelled() const override { return busy_.Cancelled(); }

private:
    std::chrono::milliseconds FrameLeft() const;
    template <class Done> void LetWindowsLive(Done done) noexcept;
    void OnePass() noexcept;

    BusyState& busy_;
    QElapsedTimer sinceLastPass_;
};

}

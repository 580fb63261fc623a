#pragma once

#include "platform/IWait.h"

namespace tarvex {

/// A wait in which time passes at once.
class FakeWait : public IWait {
public:
    void Pause(std::chrono::milliseconds) override {}

    void Until(IPendingCall& call) override
    {
        while (!call.WaitFor(std::chrono::seconds(1)))
            ;
    }

    void Breathe() override { onBreathe(); }

    bool Cancelled() const override { return cancelled; }

    std::function<void()> onBreathe = [] {}; ///< what happens while the window lives, such as a key
    bool cancelled = false;
};

}

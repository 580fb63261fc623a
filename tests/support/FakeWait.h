#pragma once

#include "platform/IWait.h"

#include <functional>
#include <limits>
#include <vector>

namespace tarvex {

/// A wait in which time passes at once: pauses are only added up.
class FakeWait : public IWait {
public:
    void Pause(std::chrono::milliseconds duration) override
    {
        pauses.push_back(duration);
        total += duration;
    }

    void Until(IPendingCall& call) override
    {
        while (!call.WaitFor(std::chrono::seconds(1)))
            ;
    }

    void Breathe() override
    {
        ++breaths;
        if (onBreathe)
            onBreathe();
    }

    bool Cancelled() const override { return cancelled || asked++ >= cancelAfter; }

    std::vector<std::chrono::milliseconds> pauses;
    std::chrono::milliseconds total{0};
    int breaths = 0;
    std::function<void()> onBreathe; ///< what happens while the window lives, such as a key
    bool cancelled = false;
    int cancelAfter = std::numeric_limits<int>::max(); ///< so many times Cancelled answers false first
    mutable int asked = 0;                             ///< times that Cancelled was asked
};

}

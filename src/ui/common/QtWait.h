#pragma once

#include "platform/IWait.h"
#include "ui/common/BusyState.h"

#include <QElapsedTimer>

namespace tarvex {

/// Waits that keep the windows alive: painting, timers and the Escape key go on, about once in a frame of 16 ms.
class QtWait : public IWait {
public:
    explicit QtWait(BusyState& busy) : busy_(busy) { sinceLastPass_.start(); }

    void Pause(std::chrono::milliseconds duration) override;
    void Until(IPendingCall& call) override;
    void Breathe() override;
    bool Cancelled() const override { return busy_.Cancelled(); }

private:
    BusyState& busy_;
    QElapsedTimer sinceLastPass_;
};

}

#include "ui/common/QtWait.h"
#include "support/qt/QtTestTools.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace tarvex {

namespace {

/// A call that lasts until the test lets it end, and then wakes its waiter from another thread.
class HeldCall : public IPendingCall {
public:
    void End()
    {
        thread_ = std::jthread([this] {
            isDone_ = true;
            wake_();
        });
    }
    bool WaitFor(std::chrono::milliseconds) override { return isDone_; }
    bool IsDone() override { return isDone_; }
    void OnDone(std::function<void()> wake) override { wake_ = std::move(wake); }

private:
    std::atomic<bool> isDone_ = false;
    std::function<void()> wake_;
    std::jthread thread_; // ends before what it uses
};

}

TEST(QtWait, KeepsTimersGoingAndWaitsForTheCallBeforeARequestToEndTheProgramGoesOn)
{
    BusyState busy;
    QtWait wait(busy);
    QTimer heart;
    int beats = 0;
    bool callEnded = false;
    bool wentOn = false;
    const auto code = RunProgram([&] {
        HeldCall call;
        QObject::connect(&heart, &QTimer::timeout, &heart, [&] {
            EXPECT_TRUE(busy.IsBusy());
            Guarded([] { ExitApplication(7); });
            if (++beats == 3)
                call.End();
        });
        heart.start(1);
        wait.Until(call);
        heart.stop();
        callEnded = call.IsDone();
        wait.Breathe();
        wentOn = true;
    });
    EXPECT_EQ(code, 7);
    EXPECT_TRUE(callEnded);
    EXPECT_FALSE(wentOn);
    EXPECT_FALSE(busy.IsBusy());
}

}

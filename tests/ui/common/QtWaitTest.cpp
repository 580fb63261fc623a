#include "ui/common/QtWait.h"
#include "support/qt/QtTestTools.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace tarvex {

namespace {

/// A call that lasts until the test lets it end, and then wakes its waiter from another thread.
class HeldCall : public IPendingCall {
public:
    void End() { end_.set_value(); }
    bool WaitFor(std::chrono::milliseconds limit) override
    {
        return done_.wait_for(limit) == std::future_status::ready;
    }
    bool IsDone() override { return WaitFor({}); }
    void OnDone(std::function<void()> wake) override
    {
        waker_ = std::jthread([done = done_, wake] {
            done.wait();
            wake();
        });
    }

private:
    std::jthread waker_; // ends last: it waits for the promise
    std::promise<void> end_;
    std::shared_future<void> done_ = end_.get_future();
};

class QtWaitTest : public ::testing::Test {
protected:
    QtWaitTest()
    {
        QObject::connect(&heart, &QTimer::timeout, &heart, [this] {
            ++beats;
            onBeat();
        });
        heart.start(1);
    }

    BusyState busy;
    QtWait wait{busy};
    QTimer heart;
    int beats = 0;
    std::function<void()> onBeat = [] {};
};

}

TEST_F(QtWaitTest, KeepsTimersGoingUntilTheCallIsDone)
{
    HeldCall call;
    onBeat = [&] {
        EXPECT_TRUE(busy.IsBusy());
        if (beats == 3)
            call.End();
    };
    wait.Until(call);
    EXPECT_TRUE(call.IsDone());
    EXPECT_FALSE(busy.IsBusy());
}

TEST_F(QtWaitTest, LetsTheWindowLiveBetweenManyFastCallsAndWhenItBreathes)
{
    const QDeadlineTimer limit(10000);
    while (beats < 3 && !limit.hasExpired()) {
        HeldCall call;
        call.End();
        wait.Until(call);
    }
    EXPECT_GE(beats, 3);

    beats = 0;
    while (beats < 3 && !limit.hasExpired())
        wait.Breathe();
    EXPECT_GE(beats, 3);
}

TEST_F(QtWaitTest, WaitsForTheCallBeforeARequestToEndTheProgramGoesOn)
{
    bool callEnded = false;
    bool wentOn = false;
    const auto code = RunProgram([&] {
        HeldCall call;
        onBeat = [&] {
            Guarded([] { ExitApplication(7); });
            if (beats == 3)
                call.End();
        };
        wait.Until(call);
        heart.stop();
        callEnded = call.IsDone();
        wait.Breathe();
        wentOn = true;
    });
    EXPECT_EQ(code, 7);
    EXPECT_TRUE(callEnded);
    EXPECT_FALSE(wentOn);
}

TEST_F(QtWaitTest, PausesAsLongAsAskedAndEndsEarlyOnlyWithTheProgram)
{
    QElapsedTimer watch;
    watch.start();
    wait.Pause(std::chrono::milliseconds(30));
    EXPECT_GE(watch.elapsed(), 29);
    EXPECT_GE(beats, 3);

    const auto code = RunProgram([&] {
        onBeat = [] { Guarded([] { ExitApplication(4); }); };
        wait.Pause(std::chrono::minutes(1));
    });
    EXPECT_EQ(code, 4);
    EXPECT_LT(watch.elapsed(), 30000);
}

}

#include "ui/common/QtWait.h"
#include "support/FakeErrorLog.h"
#include "support/qt/QtTestTools.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace tarvex {

namespace {

/// A call on another thread that lasts until the test lets it end.
class HeldCall : public IPendingCall {
public:
    ~HeldCall() override
    {
        End();
        thread_.join();
    }

    void End()
    {
        const std::lock_guard lock(mutex_);
        released_ = true;
        changed_.notify_all();
    }

    bool WaitFor(std::chrono::milliseconds limit) override
    {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, limit, [this] { return done_; });
    }

    bool IsDone() override
    {
        const std::lock_guard lock(mutex_);
        return done_;
    }

    void OnDone(std::function<void()> wake) override
    {
        const std::lock_guard lock(mutex_);
        if (done_)
            wake();
        else
            wake_ = std::move(wake);
    }

private:
    void Work()
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return released_; });
        done_ = true;
        changed_.notify_all();
        if (wake_)
            wake_();
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    bool released_ = false;
    bool done_ = false;
    std::function<void()> wake_;
    std::thread thread_{[this] { Work(); }};
};

}

TEST(QtWait, KeepsTimersGoingUntilTheCallIsDone)
{
    BusyState busy;
    QtWait wait(busy);
    for (int round = 0; round < 3; ++round) {
        HeldCall call;
        int beats = 0;
        bool wasBusy = false;
        QTimer heart;
        QObject::connect(&heart, &QTimer::timeout, &heart, [&] {
            wasBusy = busy.IsBusy();
            if (++beats == 3)
                call.End();
        });
        heart.start(1);
        wait.Until(call);
        EXPECT_TRUE(call.IsDone());
        EXPECT_GE(beats, 3);
        EXPECT_TRUE(wasBusy);
    }
    EXPECT_FALSE(busy.IsBusy());
}

TEST(QtWait, LetsTheWindowLiveBetweenManyFastCallsAndWhenItBreathes)
{
    BusyState busy;
    QtWait wait(busy);
    int beats = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, &heart, [&] { ++beats; });
    heart.start(0);
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

TEST(QtWait, WaitsForTheCallBeforeARequestToEndTheProgramGoesOn)
{
    BusyState busy;
    QtWait wait(busy);
    bool callEnded = false;
    bool wentOn = false;
    const auto code = RunProgram([&] {
        HeldCall call;
        QTimer ask;
        ask.setSingleShot(true);
        QObject::connect(&ask, &QTimer::timeout, &ask, [&] {
            Guarded([] { ExitApplication(7); });
            call.End();
        });
        ask.start(0);
        wait.Until(call);
        callEnded = call.IsDone();
        wait.Breathe();
        wentOn = true;
    });
    EXPECT_EQ(code, 7);
    EXPECT_TRUE(callEnded);
    EXPECT_FALSE(wentOn);
}

TEST(QtWait, PausesAsLongAsAskedAndEndsEarlyOnlyWithTheProgram)
{
    BusyState busy;
    QtWait wait(busy);
    int beats = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, &heart, [&] { ++beats; });
    heart.start(1);
    QElapsedTimer watch;
    watch.start();
    wait.Pause(std::chrono::milliseconds(30));
    EXPECT_GE(watch.elapsed(), 29);
    EXPECT_GE(beats, 3);

    watch.start();
    const auto code = RunProgram([&] {
        QTimer::singleShot(0, &heart, [] { Guarded([] { ExitApplication(4); }); });
        wait.Pause(std::chrono::minutes(1));
    });
    EXPECT_EQ(code, 4);
    EXPECT_LT(watch.elapsed(), 30000);
}

}

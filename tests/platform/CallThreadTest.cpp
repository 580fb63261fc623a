#include "platform/hid/CallThread.h"
#include "support/FakeWait.h"

#include <gtest/gtest.h>

#include <csignal>
#include <future>
#include <memory>

namespace tarvex {

namespace {

/// Waits as a window does: to be woken, and with something else to do meanwhile.
class WokenWait : public FakeWait {
public:
    void Until(IPendingCall& call) override
    {
        meanwhile();
        std::promise<void> woken;
        call.OnDone([&] { woken.set_value(); });
        woken.get_future().wait();
        EXPECT_TRUE(call.IsDone());
    }

    std::function<void()> meanwhile = [] {};
};

}

TEST(CallThread, BringsResultsAndExceptionsBackFromOneOtherThread)
{
    FakeWait polling;
    WokenWait woken;
    for (IWait* wait : {static_cast<IWait*>(&polling), static_cast<IWait*>(&woken)}) {
        CallThread thread(*wait);
        const auto first = thread.Run([] { return std::this_thread::get_id(); });
        EXPECT_NE(first, std::this_thread::get_id());
        for (int round = 0; round < 1000; ++round) {
            EXPECT_EQ(*thread.Run([&] { return std::make_unique<int>(round); }), round);
            EXPECT_THROW(thread.Run([] { throw std::out_of_range("job"); }), std::out_of_range);
        }
        EXPECT_EQ(thread.Run([] { return std::this_thread::get_id(); }), first);
    }
}

TEST(CallThread, TakesOneJobAtATime)
{
    WokenWait wait;
    CallThread thread(wait);
    wait.meanwhile = [&] { EXPECT_THROW(thread.Run([] {}), std::logic_error); };
    EXPECT_EQ(thread.Run([] { return 1; }) + thread.Run([] { return 2; }), 3);
}

TEST(CallThread, LeavesSignalsToTheOtherThreads)
{
    FakeWait wait;
    CallThread thread(wait);
    sigset_t masks[2];
    thread.Run([&] { pthread_sigmask(SIG_SETMASK, nullptr, &masks[0]); });
    pthread_sigmask(SIG_SETMASK, nullptr, &masks[1]);
    EXPECT_TRUE(sigismember(&masks[0], SIGTERM) && !sigismember(&masks[1], SIGTERM));
}

}

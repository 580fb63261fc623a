#include "base/Event.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarvex {
namespace {

struct Source {
    Event<Source, int> Changed;
    void Raise(int value) { Changed.Raise(value); }
};

class EventTest : public testing::Test {
protected:
    auto Noting(const std::string& name)
    {
        return [this, name](int value) { heard.push_back(name + std::to_string(value)); };
    }

    Source source;
    std::vector<std::string> heard;
    using Heard = std::vector<std::string>;
};

TEST_F(EventTest, HandlersRunInOrderUntilTheirSubscriptionsEnd)
{
    Subscription first = source.Changed.Subscribe(Noting("a"));
    {
        const Subscription second = source.Changed.Subscribe(Noting("b"));
        source.Raise(1);
    }
    source.Raise(2);
    Subscription moved = std::move(first);
    source.Raise(3);
    moved = source.Changed.Subscribe(Noting("c"));
    source.Raise(4);
    moved.Reset();
    source.Raise(5);
    EXPECT_EQ(heard, (Heard{"a1", "b1", "a2", "a3", "c4"}));
}

TEST_F(EventTest, HandlerUnsubscribedDuringRaiseIsNotCalledAnyMore)
{
    Subscription later;
    Subscription itself;
    itself = source.Changed.Subscribe([&](int value) {
        Noting("a")(value);
        later.Reset();
        itself.Reset();
    });
    later = source.Changed.Subscribe(Noting("b"));
    const Subscription last = source.Changed.Subscribe(Noting("c"));
    source.Raise(1);
    source.Raise(2);
    EXPECT_EQ(heard, (Heard{"a1", "c1", "c2"}));
}

TEST_F(EventTest, HandlerSubscribedDuringRaiseIsCalledByTheNextOne)
{
    std::vector<Subscription> added;
    const Subscription adding = source.Changed.Subscribe([&](int) {
        for (int i = 0; added.size() < 100; ++i)
            added.push_back(source.Changed.Subscribe(Noting("n")));
    });
    source.Raise(1);
    EXPECT_TRUE(heard.empty());
    source.Raise(2);
    EXPECT_EQ(heard, Heard(100, "n2"));
}

TEST_F(EventTest, NestedRaiseReachesEveryHandlerFirst)
{
    const Subscription nesting = source.Changed.Subscribe([&](int value) {
        if (value == 1)
            source.Raise(2);
    });
    const Subscription noting = source.Changed.Subscribe(Noting("a"));
    source.Raise(1);
    EXPECT_EQ(heard, (Heard{"a2", "a1"}));
}

TEST_F(EventTest, EventMayBeDestroyedDuringRaise)
{
    auto doomed = std::make_unique<Source>();
    const Subscription destroying = doomed->Changed.Subscribe([&](int) { doomed.reset(); });
    const Subscription after = doomed->Changed.Subscribe(Noting("a"));
    doomed->Raise(1);
    EXPECT_EQ(doomed, nullptr);
    EXPECT_EQ(heard, Heard{"a1"});
}

TEST_F(EventTest, ErrorInHandlerReachesTheRaiserAndLeavesTheEventUsable)
{
    Subscription failing = source.Changed.Subscribe([](int) { throw std::runtime_error("no"); });
    const Subscription after = source.Changed.Subscribe(Noting("a"));
    EXPECT_THROW(source.Raise(1), std::runtime_error);
    EXPECT_TRUE(heard.empty());
    failing.Reset();
    source.Raise(2);
    EXPECT_EQ(heard, Heard{"a2"});
}

}
}

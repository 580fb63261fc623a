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
    Subscription Note(const std::string& name)
    {
        return source->Changed.Subscribe([this, name](int value) { heard += name + std::to_string(value) + " "; });
    }

    std::unique_ptr<Source> source = std::make_unique<Source>();
    std::string heard;
};

TEST_F(EventTest, HandlersMayComeAndGoDuringRaise)
{
    std::vector<Subscription> added;
    Subscription later;
    Subscription itself = source->Changed.Subscribe([&](int) {
        for (int i = 0; i < 50; ++i)
            added.push_back(Note("new"));
        later.Reset();
        itself.Reset();
    });
    later = Note("b");
    const Subscription last = Note("c");
    source->Raise(1);
    EXPECT_EQ(heard, "c1 ");
    added.resize(2);
    source->Raise(2);
    EXPECT_EQ(heard, "c1 c2 new2 new2 ");
}

TEST_F(EventTest, EventMayBeDestroyedDuringRaise)
{
    const Subscription destroying = source->Changed.Subscribe([&](int) { source.reset(); });
    const Subscription after = Note("a");
    source->Raise(1);
    EXPECT_EQ(heard, "a1 ");
}

TEST_F(EventTest, ErrorInHandlerReachesTheRaiserAndLeavesTheEventUsable)
{
    Subscription failing = source->Changed.Subscribe([](int) { throw std::runtime_error("no"); });
    const Subscription after = Note("a");
    EXPECT_THROW(source->Raise(1), std::runtime_error);
    failing.Reset();
    source->Raise(2);
    EXPECT_EQ(heard, "a2 ");
}

}
}

#include "base/Event.h"
#include "base/ExitRequest.h"
#include "base/Numbers.h"
#include "support/ExitCode.h"
#include "support/ExpectError.h"

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

TEST(ExitRequest, FirstRequestWins)
{
    const int window = 0;
    EXPECT_THROW(ExitApplication(2, &window), ExitRequest);
    EXPECT_EQ(ExitState::KeptWindow(), &window);
    EXPECT_EQ(ExitCodeOf([] { ExitApplication(7); }), 2);
    EXPECT_NO_THROW(ExitState::RethrowIfPending());
}

TEST(Numbers, NarrowingAndIndexingStopAtTheEdges)
{
    EXPECT_EQ(ToInt16(-32768, "S") + ToInt16(32767, "S"), -1);
    EXPECT_EQ(ToByte(255, "S"), 255);
    ExpectError([] { ToInt16(32768, "S"); }, kErrOverflow, "S", "Overflow");
    ExpectError([] { ToInt16(-32769, "S"); }, kErrOverflow);
    ExpectError([] { ToByte(256, "S"); }, kErrOverflow);
    ExpectError([] { ToByte(-1, "S"); }, kErrOverflow);
    ExpectError([] { ToInt32(std::int64_t{1} << 31, "S"); }, kErrOverflow);
    const std::vector<int> numbers = {1, 2};
    EXPECT_EQ(CheckedAt(numbers, 1, "S"), 2);
    ExpectError([&] { CheckedAt(numbers, 2, "S"); }, kErrSubscript, "S", "Subscript out of range");
    ExpectError([&] { CheckedAt(numbers, -1, "S"); }, kErrSubscript);
}

TEST(Numbers, HalvesAreRoundedToTheEvenNumber)
{
    const std::pair<double, int> cases[] = {{0.5, 0}, {1.5, 2}, {-0.5, 0}, {-1.5, -2}, {-2.5, -2}, {-2.51, -3}};
    for (const auto& [value, rounded] : cases)
        EXPECT_EQ(RoundHalfToEven(value), rounded) << value;
}

TEST(Numbers, TextIsANumberAsAWholeOrNotAtAll)
{
    using Number = std::optional<std::int32_t>;
    const std::tuple<const char*, Number, Number> cases[] = {
        {"7f", 127, {}},       {"FFFFFFFF", -1, {}}, {"00000012", 18, 12}, {"000000012", {}, 12},
        {"", {}, {}},          {"-7", {}, -7},       {"+7", {}, 7},        {"+", {}, {}},
        {"-+1", {}, {}},       {"0x1", {}, {}},      {"&H1", {}, {}},      {" 1", {}, {}},
        {"1 ", {}, {}},        {"1.5", {}, {}},      {"G", {}, {}},        {"80000000", INT32_MIN, 80000000},
        {"2147483648", {}, {}}};
    for (const auto& [text, hex, decimal] : cases) {
        EXPECT_EQ(TryParseHex(text), hex) << text;
        EXPECT_EQ(TryParseDecimal(text), decimal) << text;
    }
    ExpectError([] { ParseHex("12x", "S"); }, kErrTypeMismatch, "S", "Type mismatch");
    ExpectError([] { ParseDecimal("ten", "S"); }, kErrTypeMismatch, "S", "Type mismatch");
    EXPECT_EQ(ToHex(0xA51, 4) + ToHex(0x12345, 4) + ToHex(-1), "0A5112345FFFFFFFF");
}

}
}

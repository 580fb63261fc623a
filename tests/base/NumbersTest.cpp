#include "base/Numbers.h"

#include "support/ExpectError.h"

#include <limits>
#include <vector>

namespace tarvex {
namespace {

TEST(Numbers, NarrowingStopsAtTheEdges)
{
    EXPECT_EQ(ToInt16(-32768, "S"), -32768);
    EXPECT_EQ(ToInt16(32767, "S"), 32767);
    EXPECT_EQ(ToByte(255, "S"), 255);
    EXPECT_EQ(ToInt32(std::numeric_limits<std::int32_t>::min(), "S"), std::numeric_limits<std::int32_t>::min());
    ExpectError([] { ToInt16(32768, "S"); }, kErrOverflow, "S", "Overflow");
    ExpectError([] { ToInt16(-32769, "S"); }, kErrOverflow);
    ExpectError([] { ToByte(256, "S"); }, kErrOverflow);
    ExpectError([] { ToByte(-1, "S"); }, kErrOverflow);
    ExpectError([] { ToInt32(std::int64_t{1} << 31, "S"); }, kErrOverflow);
}

TEST(Numbers, HalvesAreRoundedToTheEvenNumber)
{
    const struct {
        double value;
        std::int64_t rounded;
    } cases[] = {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {-2.5, -2}, {2.4999, 2}, {-2.51, -3}, {7, 7}};
    for (const auto& c : cases)
        EXPECT_EQ(RoundHalfToEven(c.value), c.rounded) << c.value;
}

TEST(Numbers, HexadecimalIsReadAsTwosComplement)
{
    const struct {
        const char* text;
        std::optional<std::int32_t> value;
    } cases[] = {
        {"0", 0},         {"7f", 127}, {"FFFFFFFF", -1},  {"80000000", std::numeric_limits<std::int32_t>::min()},
        {"00000012", 18}, {"", {}},    {"000000012", {}}, {"-1", {}},
        {"+1", {}},       {"0x1", {}}, {"&H1", {}},       {" 1", {}},
        {"1 ", {}},       {"G", {}}};
    for (const auto& c : cases)
        EXPECT_EQ(TryParseHex(c.text), c.value) << c.text;
    ExpectError([] { ParseHex("12x", "S"); }, kErrTypeMismatch, "S", "Type mismatch");
}

TEST(Numbers, DecimalTakesOneSignAndNothingElse)
{
    const struct {
        const char* text;
        std::optional<std::int32_t> value;
    } cases[] = {{"0", 0},           {"+7", 7},   {"-7", -7},  {"2147483647", 2147483647},
                 {"2147483648", {}}, {"", {}},    {"+", {}},   {"-", {}},
                 {"++1", {}},        {"-+1", {}}, {"+-5", {}}, {"1.5", {}},
                 {"1e3", {}},        {"1 ", {}},  {" 1", {}}};
    for (const auto& c : cases)
        EXPECT_EQ(TryParseDecimal(c.text), c.value) << c.text;
    ExpectError([] { ParseDecimal("ten", "S"); }, kErrTypeMismatch, "S", "Type mismatch");
}

TEST(Numbers, HexadecimalIsWrittenInUpperCaseAndPadded)
{
    EXPECT_EQ(ToHex(0), "0");
    EXPECT_EQ(ToHex(0xA51, 4), "0A51");
    EXPECT_EQ(ToHex(0x12345, 4), "12345");
    EXPECT_EQ(ToHex(-1), "FFFFFFFF");
}

TEST(Numbers, CheckedAtGivesReferencesAndStopsAtTheEnds)
{
    std::vector<int> numbers = {1, 2};
    CheckedAt(numbers, 1, "S") = 5;
    EXPECT_EQ(numbers.back(), 5);
    ExpectError([&] { CheckedAt(numbers, 2, "S"); }, kErrSubscript, "S", "Subscript out of range");
    ExpectError([&] { CheckedAt(numbers, -1, "S"); }, kErrSubscript);
}

}
}

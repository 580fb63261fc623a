#include "model/BitConversions.h"

#include "support/ExpectError.h"

namespace tarvex {
namespace {

std::vector<int> TrueAt(const Bits& bits)
{
    std::vector<int> positions;
    for (std::size_t i = 0; i < bits.size(); ++i)
        if (bits[i])
            positions.push_back(static_cast<int>(i));
    return positions;
}

TEST(BitConversions, ParsesEveryFormOfABitString)
{
    const std::tuple<const char*, int, std::vector<int>, std::size_t> cases[] = {
        {"", 0, {}, 8},
        {"1,4:7", 5, {1, 4, 5, 6, 7}, 8},
        {"4:2,4", 2, {4}, 8},
        {"10", 2, {0, 1}, 8},
        {"5,:1", 3, {0, 1, 5}, 8},
        {"1:2:3", 6, {0, 1, 2, 3}, 8},
        {"0:9", 10, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, 15},
        {"0:7,0:7", 16, {0, 1, 2, 3, 4, 5, 6, 7}, 29}};
    for (const auto& [text, count, positions, size] : cases) {
        Bits bits(40, true);
        EXPECT_EQ(ParseBitString(text, bits), count) << text;
        EXPECT_EQ(TrueAt(bits), positions) << text;
        EXPECT_EQ(bits.size(), size) << text;
    }
}

TEST(BitConversions, RefusesOtherCharactersAndTooManyMarks)
{
    Bits bits;
    const std::pair<const char*, int> cases[] = {{"1, 2", 32},         {"-1", 45},   {"a", 97},    {"\xC3\xA9", 233},
                                                 {"\xE2\x82\xAC", 63}, {"\xFF", 63}, {"\xC3", 195}};
    for (const auto& c : cases)
        ExpectError([&] { ParseBitString(c.first, bits); }, ObjectError(100), "Function ParseBitString",
                    "Invalid character " + std::to_string(c.second) + " in parse string");
    EXPECT_EQ(ParseBitString(std::string(32767, '1'), bits), 32767);
    ExpectError([&] { ParseBitString(std::string(32768, '1'), bits); }, kErrOverflow);
}

TEST(BitConversions, BytesAndBitsMatchBothWays)
{
    EXPECT_EQ(TrueAt(ByteToBits(0xA5)), (std::vector<int>{0, 2, 5, 7}));
    EXPECT_EQ(BitsToByte(ByteToBits(0xA5)), 0xA5);
    EXPECT_EQ(BitStringToByte(" 101 ") + BitStringToByte("2x1") + BitStringToByte(""), 6);
    Bits bits(16);
    bits[9] = bits[15] = true;
    EXPECT_EQ(TrueAt(Extract8Bits(bits, 8, 7)), std::vector<int>{1});
    EXPECT_EQ(Extract8Bits(bits, 16, 0), Bits(8));
}

TEST(BitConversions, LongsTravelWithTheLeastSignificantByteFirst)
{
    EXPECT_EQ(BytesToLong({0x34, 0x12}, 2), 0x1234);
    EXPECT_EQ(BytesToLong({0x34, 0x12}, 1), 0x34);
    EXPECT_EQ(BytesToLong(Bytes(4, 0xFF), 4), -1);
    EXPECT_EQ(IntToBytes(0x1234), (Bytes{0x34, 0x12}));
    const std::tuple<std::int32_t, int, Bytes> cases[] = {
        {0, 1, {0, 0, 0, 0}}, {65536, 3, {0, 0, 1, 0}}, {INT32_MAX, 4, {0xFF, 0xFF, 0xFF, 0x7F}}};
    for (const auto& [value, count, expected] : cases) {
        Bytes bytes(7, 0xEE);
        EXPECT_EQ(LongToBytes(value, bytes), count) << value;
        EXPECT_EQ(bytes, expected) << value;
    }
}

TEST(BitConversions, RefusesWhatDoesNotFit)
{
    Bytes bytes;
    const Bits bits(16);
    ExpectError([] { BitsToByte(Bits(9)); }, ObjectError(1), "Function:BitsToByte",
                "Too many bits, 9, passed to convert to byte, max is 8");
    ExpectError([] { BitStringToByte("000000000"); }, ObjectError(0), "Function:BitStringToByte",
                "source bitString represents more than 8 bits");
    ExpectError([&] { Extract8Bits(bits, 9, 8); }, ObjectError(0), "Function:Extract8Bits",
                "Not enough bits to extract beginning at 9 thru 17");
    ExpectError([&] { Extract8Bits(bits, 0, 9); }, kErrSubscript);
    ExpectError([&] { Extract8Bits(bits, -1, 8); }, kErrSubscript);
    ExpectError([] { BytesToLong(Bytes(5), 5); }, 10, "Function:BytesToLong",
                "5 bytes is too many to convert to long, max is 4");
    ExpectError([] { BytesToLong(Bytes(4), 0); }, kErrTypeMismatch);
    ExpectError([] { BytesToLong(Bytes(1), 2); }, kErrSubscript);
    ExpectError([&] { LongToBytes(-1, bytes); }, 10, "Function:LongToBytes", "Cannot convert a negative long to bytes");
    ExpectError([] { IntToBytes(-5); }, 10, "Function:IntToBytes", "Cannot convert a negative integer to bytes");
}

}
}

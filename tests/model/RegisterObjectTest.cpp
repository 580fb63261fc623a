#include "model/RegisterObject.h"

#include "support/ExpectError.h"

#include <string>
#include <vector>

namespace tarvex {
namespace {

RegisterObject Make(std::int16_t bits = 8)
{
    RegisterObject made;
    made.Init(0x451, 0x12, 7, bits, "Gain", "The gain");
    return made;
}

TEST(RegisterObject, BeginsAsAnEmptyByte)
{
    const RegisterObject fresh;
    EXPECT_EQ(fresh.MaxBits(), 8);
    EXPECT_EQ(fresh.Reference(), 8);
    EXPECT_EQ(fresh.BaseAddress(), 0);
    EXPECT_EQ(fresh.Address(), 0);
    EXPECT_EQ(fresh.value(), 0);
    EXPECT_EQ(fresh.GetBitFlags(7), 0);
    EXPECT_EQ(fresh.GetBitDescription(7), "");
    EXPECT_EQ(fresh.Name() + fresh.Description(), "");
    EXPECT_FALSE(fresh.IsDirty());
}

TEST(RegisterObject, InitClearsWhatBelongsToBits)
{
    RegisterObject changed = Make();
    changed.value(200);
    changed.SetBitFlags(3, 2);
    changed.SetBitDescription(3, "Three");
    changed.Init(1, 2, 3, 16, "Other", "Else");
    EXPECT_EQ(changed.MaxBits(), 16);
    EXPECT_EQ(changed.MaxValue(), 65535);
    EXPECT_EQ(changed.value(), 0);
    EXPECT_EQ(changed.GetBitFlags(3), 0);
    EXPECT_EQ(changed.GetBitDescription(3), "");
    EXPECT_EQ(changed.Name(), "Other");
    EXPECT_EQ(changed.Reference(), 3);
    EXPECT_FALSE(changed.IsDirty());
    for (const std::int16_t width : {std::int16_t{-8}, std::int16_t{0}, std::int16_t{32}})
        ExpectError([&] { changed.Init(1, 2, 3, width, "Bad", ""); }, kErrValueOutOfRange);
    EXPECT_EQ(changed.Name(), "Other");
}

TEST(RegisterObject, ValueKeepsToItsRange)
{
    const struct {
        std::int16_t bits;
        std::int32_t highest;
    } cases[] = {{8, 255}, {16, 65535}, {24, 16777215}};
    for (const auto& c : cases) {
        RegisterObject made = Make(c.bits);
        EXPECT_EQ(made.MinValue(), 0);
        EXPECT_EQ(made.MaxValue(), c.highest);
        made.value(c.highest);
        for (const std::int32_t bad : {c.highest + 1, -1})
            ExpectError([&] { made.value(bad); }, 10, "RegisterObject::LetValue",
                        "Value " + std::to_string(bad) + " out of range for register with " + std::to_string(c.bits) +
                            " bits");
        EXPECT_EQ(made.value(), c.highest);
        made.value(5);
        EXPECT_EQ(made.value(), 5);
    }
}

TEST(RegisterObject, OnlyANewValueMarksItChanged)
{
    RegisterObject made = Make();
    made.value(0);
    EXPECT_FALSE(made.IsDirty());
    ExpectError([&] { made.value(256); }, 10);
    EXPECT_FALSE(made.IsDirty());
    made.SetBit(2, true);
    made.SetBitFlags(2, 1);
    made.ChangeBitFlags(2, 2, 1);
    EXPECT_FALSE(made.IsDirty());
    made.value(9);
    EXPECT_TRUE(made.IsDirty());
    made.IsDirty(false);
    made.value(9);
    EXPECT_FALSE(made.IsDirty());
}

TEST(RegisterObject, BitsAndValueAreTheSame)
{
    RegisterObject made = Make(24);
    made.value(0xA5);
    for (const std::int16_t bit : {std::int16_t{0}, std::int16_t{2}, std::int16_t{5}, std::int16_t{7}})
        EXPECT_TRUE(made.GetBit(bit));
    EXPECT_FALSE(made.GetBit(1));
    made.SetBit(23, true);
    made.SetBit(0, false);
    EXPECT_EQ(made.value(), 0x8000A4);
}

TEST(RegisterObject, FlagsAreSetBeforeTheyAreCleared)
{
    RegisterObject made = Make();
    made.SetBitFlags(3, 2);
    made.ChangeBitFlags(3, 4, 2);
    EXPECT_EQ(made.GetBitFlags(3), 4);
    made.ChangeBitFlags(3, 128, 128);
    EXPECT_EQ(made.GetBitFlags(3), 4);
    EXPECT_TRUE(HasFlag(made.GetBitFlags(3), AccessFlag::WriteOnly));
    EXPECT_FALSE(HasFlag(made.GetBitFlags(3), AccessFlag::Reserved));
    EXPECT_EQ(made.GetBitFlags(2), 0);
}

TEST(RegisterObject, DescriptionsOfBitsStayApart)
{
    RegisterObject made = Make();
    made.SetBitDescription(7, "Last");
    made.SetBitDescription(0, "First");
    made.SetBitDescription(3, "A longer text for the bit in the middle of the byte");
    made.SetBitDescription(0, "");
    made.SetBitDescription(4, std::string("cut\0off", 7));
    const std::vector<std::string> expected = {"",    "", "", "A longer text for the bit in the middle of the byte",
                                               "cut", "", "", "Last"};
    for (std::int16_t bit = 0; bit < 8; ++bit)
        EXPECT_EQ(made.GetBitDescription(bit), expected[static_cast<std::size_t>(bit)]) << bit;
}

TEST(RegisterObject, IndexesOutsideTheRegisterAreRefused)
{
    RegisterObject made = Make();
    for (const std::int16_t bit : {std::int16_t{8}, std::int16_t{-1}}) {
        const std::string flag = "Flag index, " + std::to_string(bit) + ", out of range";
        const std::string text = "Bit index, " + std::to_string(bit) + ", out of range";
        ExpectError([&] { made.SetBit(bit, true); }, 10, "RegisterObject::SetBit", flag);
        ExpectError([&] { made.GetBit(bit); }, 10, "RegisterObject::GetBit", flag);
        ExpectError([&] { made.GetBitFlags(bit); }, 10, "RegisterObject::GetBitFlag", flag);
        ExpectError([&] { made.SetBitDescription(bit, "x"); }, 10, "RegisterObject::SetBitDescription", text);
        ExpectError([&] { made.GetBitDescription(bit); }, 10, "RegisterObject::GetBitDescription", text);
        ExpectError([&] { made.SetBitFlags(bit, 1); }, kErrSubscript);
    }
    ExpectError([&] { made.ChangeBitFlags(8, 1, 0); }, 10, "RegisterObject::SetFlags", "Flag index, 8, out of range");
    ExpectError([&] { made.ChangeBitFlags(-1, 1, 0); }, kErrSubscript);
}

}
}

#include "model/RegisterObject.h"

#include "support/ExpectError.h"

#include <string>

namespace tarvex {
namespace {

RegisterObject Make(std::int16_t bits = 8)
{
    RegisterObject made;
    made.Init(0x451, 0x12, 7, bits, "Gain", "The gain");
    return made;
}

TEST(RegisterObject, ValueKeepsToItsRangeAndMarksOnlyAChange)
{
    for (const std::int16_t bits : {std::int16_t{8}, std::int16_t{16}, std::int16_t{24}}) {
        RegisterObject made = Make(bits);
        const std::int32_t highest = (1 << bits) - 1;
        made.value(0);
        for (const std::int32_t bad : {highest + 1, -1})
            ExpectError([&] { made.value(bad); }, 10, "RegisterObject::LetValue",
                        "Value " + std::to_string(bad) + " out of range for register with " + std::to_string(bits) +
                            " bits");
        EXPECT_FALSE(made.IsDirty());
        made.value(highest);
        EXPECT_TRUE(made.IsDirty());
        made.SetBit(0, false);
        EXPECT_EQ(made.value(), highest - 1);
    }
}

TEST(RegisterObject, FlagsAndDescriptionsOfBitsStayApart)
{
    RegisterObject made = Make();
    made.SetBitFlags(3, 2);
    made.ChangeBitFlags(3, 4, 2);
    made.ChangeBitFlags(3, 128, 128); // set before cleared
    EXPECT_EQ(made.GetBitFlags(3), 4);
    EXPECT_EQ(made.GetBitFlags(2), 0);
    made.SetBitDescription(7, "Last");
    made.SetBitDescription(0, "A longer text for the first bit");
    made.SetBitDescription(4, std::string("cut\0off", 7));
    EXPECT_EQ(made.GetBitDescription(0), "A longer text for the first bit");
    EXPECT_EQ(made.GetBitDescription(3) + made.GetBitDescription(4) + made.GetBitDescription(7), "cutLast");
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

#include "support/ExpectError.h"
#include "ui/advanced/HexFieldRules.h"
#include "ui/advanced/UI_RegisterItemRules.h"

namespace tarvex {

TEST(HexFieldRules, AcceptOnlyNumbersWithinTheLimits)
{
    for (const char* good : {"", "0", "00", "1f", "FF", "000000FF"})
        EXPECT_TRUE(IsAcceptableHex(good, 0, 255)) << good;
    for (const char* bad : {"-", "1F0", "g", "0x1", "&H1", " 1", "1 ", "+1", "-1", "0000000FF", "FFFFFFFF"})
        EXPECT_FALSE(IsAcceptableHex(bad, 0, 255)) << bad;
    EXPECT_FALSE(IsAcceptableHex("F", 16, 255));
    EXPECT_TRUE(IsAcceptableHex("-", -1, 255));
}

TEST(HexFieldRules, SayWhatIsWrongWithATextThatIsSet)
{
    const auto check = [](const char* text, std::int32_t maximum) { CheckHexText(text, 0, maximum); };
    ExpectError([&] { check("XY", 255); }, 800, "HexField.Text", "Value XY is not a valid hex.");
    ExpectError([&] { check("100", 255); }, 801, "HexField.Text", "Value 100 is not between 0 and 255.");
    ExpectError([&] { check("FFFF", 65535); }, 801); // -1 in 16 bits
    check("7FFF", 65535);
}

TEST(UI_RegisterItemRules, ColourLockAndNameABitByItsFlags)
{
    const std::pair<std::int16_t, BitLook> cases[] = {
        {0, {0x000000, false, ""}},
        {1, {0x00E1B4, true, "Read only"}},
        {2, {0xFFFFFF, false, "Read/write"}},
        {4, {0x800080, false, "Write only"}},
        {128, {0x808080, true, "Reserved"}},
        {1 | 4, {0x800080, true, "Write only"}},
        {1 | 2, {0xFFFFFF, true, "Read/write"}},
        {4 | 128, {0x808080, true, "Reserved"}},
    };
    for (const auto& [flags, look] : cases)
        EXPECT_EQ(LookOfBit(flags), look) << flags;
    EXPECT_EQ(TextColourOn(0x808080), 0x000000U);
    EXPECT_EQ(TextColourOn(0x800080), 0xFFFFFFU);
}

}

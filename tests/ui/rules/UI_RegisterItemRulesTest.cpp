#include "ui/advanced/UI_RegisterItemRules.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

TEST(UI_RegisterItemRules, ColourLockAndNameABitByItsFlags)
{
    const struct {
        std::int16_t flags;
        BitLook look;
    } cases[] = {
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
}

#include "ui/advanced/ItemObject.h"

#include "base/Error.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

struct ItemObjectTest : ::testing::Test {
    ItemEvents events;
    ItemObject item{events};

    void Init(std::int32_t maximum) { item.Init(7, "PLL", "450", 16, maximum, 0, kRegisterRowType); }
};

TEST_F(ItemObjectTest, KeepsItsValueWithinLimitsAndTellsItInAnyCase)
{
    Init(255);
    std::vector<std::int32_t> told;
    const auto heard = events.ValueChanged.Subscribe([&](std::int16_t, std::int32_t value) { told.push_back(value); });
    for (const std::int32_t value : {32, 300, -1, 255})
        item.value(value);
    EXPECT_EQ(told, (std::vector<std::int32_t>{32, 32, 32, 255}));
}

TEST_F(ItemObjectTest, CountsTheBitsOfItsMaximum)
{
    for (const auto& [maximum, bits] : std::vector<std::pair<std::int32_t, int>>{
             {0, 0}, {1, 1}, {2, 1}, {254, 7}, {255, 8}, {65535, 16}, {1 << 20, 16}}) {
        Init(maximum);
        EXPECT_EQ(item.BitCount(), bits) << maximum;
    }
}

TEST_F(ItemObjectTest, HoldsPromptsOnceOneIsSetAndWhenItGetsWider)
{
    Init(255);
    item.SetBitPrompt(3, "Enable");
    EXPECT_EQ(item.GetBitPrompt(3), "Enable");
    EXPECT_EQ(item.GetBitPrompt(7), "");
    EXPECT_THROW(item.GetBitPrompt(8), Error);
    EXPECT_THROW(item.SetRestrictedBit(-1, 1), Error);
    item.SetTooWide();
    EXPECT_EQ(item.GetBitPrompt(15), "");
    item.value(0xABCDEF);
    EXPECT_EQ(item.value(), 0xABCDEF);
}

}
}

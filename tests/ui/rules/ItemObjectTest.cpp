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
    const auto heard = events.ValueChanged.Subscribe([&](std::int16_t index, std::int32_t value) {
        EXPECT_EQ(index, 7);
        told.push_back(value);
    });
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

TEST_F(ItemObjectTest, RefusesBitsThatItDoesNotHave)
{
    Init(255);
    item.SetRestrictedBit(7, 4);
    EXPECT_EQ(item.GetRestrictedBit(7), 4);
    for (const std::int16_t bit : std::initializer_list<std::int16_t>{-1, 8}) {
        try {
            item.SetRestrictedBit(bit, 1);
            ADD_FAILURE() << bit;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ObjectError(1));
            EXPECT_EQ(error.Source(), "ItemObject::SetRestrictedBit");
            EXPECT_EQ(error.Description(), "Bit index of " + std::to_string(bit) + " out of range: 0 to 8");
        }
        EXPECT_THROW(item.GetRestrictedBit(bit), Error);
        EXPECT_THROW(item.SetBitPrompt(bit, "x"), Error);
        EXPECT_THROW(item.GetBitPrompt(bit), Error);
    }
}

TEST_F(ItemObjectTest, HoldsPromptsOnceOneIsSetAndWhenItGetsWider)
{
    Init(255);
    EXPECT_EQ(item.GetBitPrompt(7), "");
    item.SetBitPrompt(3, "Enable");
    EXPECT_EQ(item.GetBitPrompt(3), "Enable");
    EXPECT_EQ(item.GetBitPrompt(7), "");
    item.SetTooWide();
    EXPECT_EQ(item.GetBitPrompt(15), "");
    item.value(0xABCDEF);
    EXPECT_EQ(item.value(), 0xABCDEF);
}

}
}

#include "model/Bitset.h"

#include "model/RegisterObject.h"
#include "support/ExpectError.h"
#include "support/FakeDevice.h"

#include <utility>
#include <vector>

namespace tarvex {
namespace {

std::shared_ptr<RegisterObject> MakeRegister(std::int16_t bits = 8)
{
    auto made = std::make_shared<RegisterObject>();
    made->Init(0x451, 3, 0, bits, "TestReg", "A register");
    for (std::int16_t bit = 0; bit < bits; ++bit)
        made->SetBitFlags(bit, static_cast<std::int16_t>(1 << bit % 8));
    return made;
}

std::vector<int> PositionsOf(const Bitset& bitset)
{
    std::vector<int> positions;
    for (std::int16_t i = 0; i < bitset.Count(); ++i)
        positions.push_back(bitset.GetBitParentIndex(i));
    return positions;
}

TEST(Bitset, ReportsTheSelectedBitsOfItsRegister)
{
    const struct {
        const char* name;
        const char* bitString;
        std::vector<int> positions;
        std::vector<std::pair<int, int>> values; ///< of the register and of the bitset
    } cases[] = {{"singleBS", "3", {3}, {{8, 8}, {7, 0}}},
                 {"fullColonBS", "0:7", {0, 1, 2, 3, 4, 5, 6, 7}, {{255, 255}, {0, 0}, {128, 128}}},
                 {"partialColonBS", "2:4", {2, 3, 4}, {{255, 28}, {15, 12}, {248, 24}}},
                 {"partialCommaBS", "2,3,4", {2, 3, 4}, {{255, 28}, {15, 12}, {248, 24}}},
                 {"discontiguousCommaBS", "1,2,5,6,7", {1, 2, 5, 6, 7}, {{255, 230}, {22, 6}, {163, 162}}},
                 {"discontiguousColonBS", "0:2,5:7", {0, 1, 2, 5, 6, 7}, {{255, 231}, {175, 167}, {26, 2}}},
                 {"mixedBitstringBS", "1,4:7", {1, 4, 5, 6, 7}, {{255, 242}, {196, 192}, {54, 50}}},
                 {"unordered", "4,3,2,2", {2, 3, 4}, {{255, 28}}},
                 {"beyondTheRegister", "7:9", {7}, {{255, 128}}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const auto parent = MakeRegister();
        Bitset bitset;
        bitset.Init(c.name, parent, c.bitString);
        EXPECT_EQ(bitset.Name(), c.name);
        EXPECT_EQ(bitset.ParentRegister(), "TestReg");
        ASSERT_EQ(PositionsOf(bitset), c.positions);
        for (const auto& [whole, selected] : c.values) {
            parent->value(whole);
            EXPECT_EQ(bitset.GetValue(), selected);
            for (std::int16_t i = 0; i < bitset.Count(); ++i) {
                const int bit = 1 << c.positions[static_cast<std::size_t>(i)];
                EXPECT_EQ(bitset.GetBitValue(i), (whole & bit) != 0);
                EXPECT_EQ(bitset.GetBitFlags(i), bit);
            }
        }
    }
}

TEST(Bitset, FailedInitLeavesItAsItWas)
{
    const auto parent = MakeRegister();
    Bitset bitset;
    bitset.Init("good", parent, "2:4");
    ExpectError([&] { bitset.Init("bad", parent, "1, 2"); }, ObjectError(100), "Function ParseBitString",
                "Invalid character 32 in parse string");
    ExpectError([&] { bitset.Init("none", parent, "8,9"); }, kErrSubscript);
    ExpectError([&] { bitset.Init("none", parent, ""); }, kErrSubscript);
    EXPECT_EQ(bitset.Name(), "good");
    EXPECT_EQ(PositionsOf(bitset), (std::vector<int>{2, 3, 4}));
}

TEST(Bitset, RefusesIndexesOutsideItAndUseBeforeInit)
{
    Bitset bitset;
    EXPECT_EQ(bitset.Count(), 0);
    FakeDevice device;
    ExpectError([&] { bitset.ParentRegister(); }, kErrSubscript);
    ExpectError([&] { bitset.GetValue(); }, kErrSubscript);
    ExpectError([&] { bitset.ReadBitsetValue(device); }, kErrSubscript);
    ExpectError([&] { bitset.GetBitFlags(0); }, kErrSubscript);
    bitset.Init("two", MakeRegister(), "4,2");
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{2}}) {
        ExpectError([&] { bitset.GetBitValue(index); }, kErrSubscript);
        ExpectError([&] { bitset.GetBitFlags(index); }, kErrSubscript);
        ExpectError([&] { bitset.GetBitParentIndex(index); }, kErrSubscript);
    }
}

TEST(Bitset, TransfersTheWholeRegisterWithoutAspi)
{
    const auto parent = MakeRegister(16);
    Bitset bitset;
    bitset.Init("field", parent, "8:9");
    FakeDevice device;
    device.memory[{0x451, 3}] = {0x34, 0x12};
    EXPECT_EQ(bitset.ReadBitsetValue(device), 0x1234);
    EXPECT_EQ(bitset.GetValue(), 0x0200);
    parent->value(0x0102);
    EXPECT_EQ(bitset.WriteBitsetValue(device), 0x0102);
    EXPECT_FALSE(parent->IsDirty());
    using Kind = FakeDevice::Kind;
    EXPECT_EQ(device.transfers, (std::vector<FakeDevice::Transfer>{{Kind::Read, 0x451, 3, {0x34, 0x12}, kNoAspi},
                                                                   {Kind::Write, 0x451, 3, {0x02, 0x01}, kNoAspi}}));
}

}
}

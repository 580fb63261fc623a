#include "model/Bitset.h"

#include "model/RegisterObject.h"
#include "support/ExpectError.h"

namespace tarvex {
namespace {

std::shared_ptr<RegisterObject> MakeRegister()
{
    auto made = std::make_shared<RegisterObject>();
    made->Init(0x451, 3, 0, 8, "TestReg", "A register");
    for (std::int16_t bit = 0; bit < 8; ++bit)
        made->SetBitFlags(bit, static_cast<std::int16_t>(1 << bit));
    return made;
}

TEST(Bitset, ReportsTheSelectedBitsOfItsRegister)
{
    const struct {
        const char* bitString;
        int selected;
        int count;
    } cases[] = {{"3", 0x08, 1}, {"2:4", 0x1C, 3}, {"1,4:7", 0xF2, 5}, {"4,3,2,2", 0x1C, 3}, {"7:9", 0x80, 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bitString);
        const auto parent = MakeRegister();
        Bitset bitset;
        bitset.Init("name", parent, c.bitString);
        EXPECT_EQ(bitset.Count(), c.count);
        parent->value(0xB5);
        EXPECT_EQ(bitset.GetValue(), 0xB5 & c.selected);
        int found = 0;
        for (std::int16_t i = 0; i < bitset.Count(); ++i) {
            const int bit = 1 << bitset.GetBitParentIndex(i);
            EXPECT_GT(bit, found) << "from the lowest bit";
            EXPECT_EQ(bitset.GetBitFlags(i), bit);
            EXPECT_EQ(bitset.GetBitValue(i), (0xB5 & bit) != 0);
            found |= bit;
        }
        EXPECT_EQ(found, c.selected);
    }
}

TEST(Bitset, FailedInitLeavesItAsItWas)
{
    Bitset bitset;
    ExpectError([&] { bitset.GetValue(); }, kErrSubscript);
    bitset.Init("good", MakeRegister(), "2:4");
    ExpectError([&] { bitset.Init("bad", MakeRegister(), "1, 2"); }, ObjectError(100));
    ExpectError([&] { bitset.Init("none", MakeRegister(), "8,9"); }, kErrSubscript);
    EXPECT_EQ(bitset.Name(), "good");
    EXPECT_EQ(bitset.GetBitParentIndex(2), 4);
    ExpectError([&] { bitset.GetBitValue(3); }, kErrSubscript);
    ExpectError([&] { bitset.GetBitFlags(-1); }, kErrSubscript);
}

}
}

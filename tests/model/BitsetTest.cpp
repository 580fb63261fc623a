#include "model/Bitset.h"

#include "model/RegisterObject.h"
#include "support/ExpectError.h"

namespace tarvex {
namespace {

TEST(Bitset, ReportsTheSelectedBitsOfItsRegister)
{
    const auto parent = std::make_shared<RegisterObject>();
    parent->Init(0x451, 3, 0, 8, "TestReg", "A register");
    parent->value(0xB5);
    Bitset bitset;
    const struct {
        const char* bitString;
        int selected;
        int count;
    } cases[] = {{"3", 0x08, 1}, {"2:4", 0x1C, 3}, {"1,4:7", 0xF2, 5}, {"4,3,2,2", 0x1C, 3}, {"7:9", 0x80, 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bitString);
        bitset.Init("name", parent, c.bitString);
        EXPECT_EQ(bitset.Count(), c.count);
        EXPECT_EQ(bitset.GetValue(), 0xB5 & c.selected);
        int found = 0;
        for (std::int16_t i = 0; i < bitset.Count(); ++i) {
            const int bit = 1 << bitset.GetBitParentIndex(i);
            EXPECT_GT(bit, found) << "from the lowest bit";
            EXPECT_EQ(bitset.GetBitValue(i), (0xB5 & bit) != 0);
            found |= bit;
        }
        EXPECT_EQ(found, c.selected);
    }
    ExpectError([&] { bitset.Init("bad", parent, "1, 2"); }, ObjectError(100));
    ExpectError([&] { bitset.Init("none", parent, "8,9"); }, kErrSubscript);
    EXPECT_EQ(bitset.Name(), "name");
    ExpectError([&] { bitset.GetBitValue(1); }, kErrSubscript);
}

}
}

#include "ui/advanced/HexFieldRules.h"

#include "base/Error.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

TEST(HexFieldRules, TellWhatAnEditWouldLeave)
{
    const HexFieldText caret{"12", "", "34"};
    const HexFieldText selection{"1", "23", "4"};
    EXPECT_EQ(TextAfterDelete(caret), "124");
    EXPECT_EQ(TextAfterDelete(selection), "14");
    EXPECT_EQ(TextAfterDelete({"12", "", ""}), "12");
    EXPECT_EQ(TextAfterBackspace(caret), "134");
    EXPECT_EQ(TextAfterBackspace(selection), "14");
    EXPECT_EQ(TextAfterBackspace({"", "", "34"}), "34");
    EXPECT_EQ(TextAfterInsert(selection, "AB"), "1AB4");
}

TEST(HexFieldRules, AcceptOnlyNumbersWithinTheLimits)
{
    for (const char* good : {"", "0", "00", "1f", "FF", "000000FF"})
        EXPECT_TRUE(IsAcceptableHex(good, 0, 255)) << good;
    for (const char* bad : {"-", "1F0", "g", "0x1", "&H1", " 1", "1 ", "+1", "-1", "0000000FF", "FFFFFFFF"})
        EXPECT_FALSE(IsAcceptableHex(bad, 0, 255)) << bad;
    EXPECT_FALSE(IsAcceptableHex("F", 16, 255));
    EXPECT_TRUE(IsAcceptableHex("-", -1, 255));
}

std::string Complaint(std::string_view text, std::int32_t maximum)
{
    try {
        CheckHexText(text, 0, maximum);
        return "";
    } catch (const Error& error) {
        return std::to_string(error.Number()) + " " + error.Source() + ": " + error.Description();
    }
}

TEST(HexFieldRules, SayWhatIsWrongWithATextThatIsSet)
{
    EXPECT_EQ(Complaint("XY", 255), "800 HexField.Text: Value XY is not a valid hex.");
    EXPECT_EQ(Complaint("100", 255), "801 HexField.Text: Value 100 is not between 0 and 255.");
    EXPECT_EQ(Complaint("7FFF", 65535), "");
    EXPECT_EQ(Complaint("FFFF", 65535), "801 HexField.Text: Value FFFF is not between 0 and 65535."); // -1 in 16 bits
}

}
}

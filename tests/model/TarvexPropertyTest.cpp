#include "model/TarvexProperty.h"

#include "model/RegisterObject.h"
#include "support/ExpectError.h"

namespace tarvex {
namespace {

using Texts = std::vector<std::string>;

class TarvexPropertyTest : public testing::Test {
protected:
    TarvexPropertyTest()
    {
        low->Init(0x451, 1, 0, 8, "Low", "");
        high->Init(0x452, 2, 1, 8, "High", "");
        property.Init("Position", {"a", "b", "a"}, {low, high, low}, {"0:7", "0:1", "7"});
    }

    std::shared_ptr<RegisterObject> low = std::make_shared<RegisterObject>();
    std::shared_ptr<RegisterObject> high = std::make_shared<RegisterObject>();
    TarvexProperty property;
};

TEST_F(TarvexPropertyTest, BuildsOneBitsetForEachElement)
{
    EXPECT_EQ(property.GetBitset(1)->ParentRegister(), "High");
    EXPECT_EQ(property.GetBitsetByName("a"), property.GetBitset(0));
    EXPECT_EQ(property.GetBitsetByName("A"), nullptr);
    Texts names = {"left", "over"};
    EXPECT_EQ(property.GetConstituents(names), 3);
    EXPECT_EQ(names, (Texts{"Low", "High", "Low"}));
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{3}})
        ExpectError([&] { property.GetBitset(index); }, 501, "class TarvexProperty", "Index was out of range.");
    ExpectError([&] { TarvexProperty().GetConstituents(names); }, kErrSubscript);
}

TEST_F(TarvexPropertyTest, FailedInitKeepsTheBitsets)
{
    ExpectError(
        [&] {
            property.Init("New", {"a", "b"}, {low, high}, {"0"});
        },
        ObjectError(12), "TarvexProperty::Init", "Container counts did not match");
    ExpectError([&] { property.Init("New", {}, {low}, {}); }, ObjectError(12));
    EXPECT_EQ(property.Name(), "Position");
    ExpectError([&] { property.Init("New", {"x", "y"}, {low, low}, {"0", "1 2"}); }, ObjectError(100));
    ExpectError([&] { property.Init("New", {}, {}, {}); }, kErrSubscript);
    ASSERT_EQ(property.BitsetCount(), 3);
    EXPECT_EQ(property.GetBitset(0)->Name(), "a");
}

TEST_F(TarvexPropertyTest, WidgetTypeIsOneOfFour)
{
    for (const char* text : {"Boolean", "ColorText", "None", "Range"})
        property.WidgetType(text);
    for (const std::string text : {"range", "", "Range "})
        ExpectError([&] { property.WidgetType(text); }, 502, "TarvexProperty::WidgetType",
                    "Invalide string of " + text + " to set WidgetType");
    EXPECT_EQ(property.WidgetType(), "Range");
}

}
}

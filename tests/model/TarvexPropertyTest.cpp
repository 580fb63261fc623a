#include "model/TarvexProperty.h"

#include "model/RegisterObject.h"
#include "support/ExpectError.h"

namespace tarvex {
namespace {

TEST(TarvexProperty, RefusesWhatDoesNotFitAndKeepsItsBitsets)
{
    const auto low = std::make_shared<RegisterObject>();
    low->Init(0x451, 1, 0, 8, "Low", "");
    TarvexProperty property;
    property.Init("Position", {"a", "b"}, {low, low}, {"0:7", "7"});
    EXPECT_EQ(property.GetBitsetByName("A"), nullptr);
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{2}})
        ExpectError([&] { property.GetBitset(index); }, 501, "class TarvexProperty", "Index was out of range.");
    ExpectError([&] { property.Init("New", {}, {low}, {}); }, ObjectError(12), "TarvexProperty::Init",
                "Container counts did not match");
    ExpectError([&] { property.Init("New", {"x", "y"}, {low, low}, {"0", "1 2"}); }, ObjectError(100));
    for (const std::string text : {"range", "", "Range "})
        ExpectError([&] { property.WidgetType(text); }, 502, "TarvexProperty::WidgetType",
                    "Invalide string of " + text + " to set WidgetType");
    EXPECT_EQ(property.GetBitsetByName("b"), property.GetBitset(1));
}

}
}

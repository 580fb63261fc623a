#include "model/TarvexProperty.h"

#include "model/RegisterObject.h"
#include "model/TarvexGroup.h"
#include "support/ExpectError.h"
#include "support/FakeDevice.h"

namespace tarvex {
namespace {

using Texts = std::vector<std::string>;

class TarvexPropertyTest : public testing::Test {
protected:
    TarvexPropertyTest()
    {
        low->Init(0x451, 1, 0, 8, "Low", "");
        high->Init(0x452, 2, 1, 8, "High", "");
    }

    void InitWhole() { property.Init("Position", {"a", "b", "a"}, {low, high, low}, {"0:7", "0:1", "7"}); }

    std::shared_ptr<RegisterObject> low = std::make_shared<RegisterObject>();
    std::shared_ptr<RegisterObject> high = std::make_shared<RegisterObject>();
    TarvexProperty property;
    FakeDevice device;
};

TEST_F(TarvexPropertyTest, BuildsOneBitsetForEachElement)
{
    InitWhole();
    EXPECT_EQ(property.Name(), "Position");
    ASSERT_EQ(property.BitsetCount(), 3);
    EXPECT_EQ(property.GetBitset(1)->ParentRegister(), "High");
    EXPECT_EQ(property.GetBitset(1)->Count(), 2);
    EXPECT_EQ(property.GetBitsetByName("a"), property.GetBitset(0));
    EXPECT_EQ(property.GetBitsetByName("A"), nullptr);
    Texts names = {"left", "over"};
    EXPECT_EQ(property.GetConstituents(names), 3);
    EXPECT_EQ(names, (Texts{"Low", "High", "Low"}));
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{3}})
        ExpectError([&] { property.GetBitset(index); }, 501, "class TarvexProperty", "Index was out of range.");
}

TEST_F(TarvexPropertyTest, FailedInitKeepsTheBitsets)
{
    InitWhole();
    const auto mismatch = [&](const Texts& names, const std::vector<std::shared_ptr<RegisterObject>>& registers,
                              const Texts& bits) {
        ExpectError([&] { property.Init("New", names, registers, bits); }, ObjectError(12), "TarvexProperty::Init",
                    "Container counts did not match");
    };
    mismatch({"a", "b"}, {low, high}, {"0"});
    mismatch({"a", "b"}, {low}, {"0", "1"});
    mismatch({}, {low}, {});
    EXPECT_EQ(property.Name(), "Position");
    ExpectError([&] { property.Init("New", {"x", "y"}, {low, low}, {"0", "1 2"}); }, ObjectError(100));
    ExpectError([&] { property.Init("New", {}, {}, {}); }, kErrSubscript);
    ASSERT_EQ(property.BitsetCount(), 3);
    EXPECT_EQ(property.GetBitset(0)->Name(), "a");
}

TEST_F(TarvexPropertyTest, EmptyPropertyHasNoConstituents)
{
    Texts names;
    ExpectError([&] { property.GetConstituents(names); }, kErrSubscript);
    ExpectError([&] { property.GetBitset(0); }, 501);
    EXPECT_EQ(property.GetBitsetByName(""), nullptr);
    EXPECT_EQ(property.BitsetCount(), 0);
}

TEST_F(TarvexPropertyTest, WidgetTypeIsOneOfFour)
{
    EXPECT_EQ(property.WidgetType(), "None");
    for (const char* text : {"Boolean", "ColorText", "None", "Range"}) {
        property.WidgetType(text);
        EXPECT_EQ(property.WidgetType(), text);
    }
    for (const std::string text : {"range", "", "Range "})
        ExpectError([&] { property.WidgetType(text); }, 502, "TarvexProperty::WidgetType",
                    "Invalide string of " + text + " to set WidgetType");
    EXPECT_EQ(property.WidgetType(), "Range");
}

TEST_F(TarvexPropertyTest, TransfersEveryBitsetsRegisterInOrder)
{
    InitWhole();
    using Kind = FakeDevice::Kind;
    device.memory[{0x452, 2}] = {3};
    property.ReadValue(device);
    EXPECT_EQ(high->value(), 3);
    low->value(5);
    property.WriteValue(device);
    EXPECT_EQ(device.Parameters(Kind::Read), (std::vector<std::int32_t>{1, 2, 1}));
    EXPECT_EQ(device.Parameters(Kind::Write), (std::vector<std::int32_t>{1, 2, 1}));
    EXPECT_EQ(device.memory.at({0x451, 1}), Bytes{5});
    device.raise = Error(303, "Link", "No");
    ExpectError([&] { property.ReadValue(device); }, 303);
}

TEST(TarvexGroup, CountsWhatItGets)
{
    TarvexGroup group;
    EXPECT_EQ(group.RegCount() + group.PropCount(), 0);
    for (const char* name : {"a", "b", "a"})
        group.AddRegister(name);
    group.AddProperty("p");
    EXPECT_EQ(group.RegCount(), 3);
    EXPECT_EQ(group.PropCount(), 1);
}

}
}

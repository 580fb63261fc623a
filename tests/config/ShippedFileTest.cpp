#include "config/ControllerFixture.h"

#include <fstream>
#include <set>
#include <sstream>

namespace tarvex {
namespace {

std::string ShippedText()
{
    std::ifstream file(TARVEX_SHARE "/Tarvex.xml");
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class ShippedFileTest : public ControllerTest {
protected:
    void SetUp() override
    {
        Use(ShippedText());
        names = controller.GetDeviceNames(kAllOptions, kRegisterProtocol);
    }

    std::vector<std::string> names;
};

TEST_F(ShippedFileTest, InitializesEveryDeviceWithDistinctRegisterPlaces)
{
    EXPECT_TRUE(initFile->CheckVendorID(0x12C5));
    EXPECT_EQ(names.size(), 8U);
    for (const std::string& name : names) {
        ASSERT_TRUE(controller.InitDevice(name)) << name;
        EXPECT_GT(controller.GetI2CRegisterCount(), 0) << name;
        EXPECT_GT(controller.GetPropertyCount(), 0) << name;
        std::set<std::pair<std::int32_t, std::int32_t>> places;
        for (std::int16_t i = 0; i < controller.GetI2CRegisterCount(); ++i) {
            const auto each = controller.GetI2CRegister(i);
            EXPECT_TRUE(places.emplace(each->BaseAddress(), each->Address()).second) << name << " " << each->Name();
        }
    }
}

TEST_F(ShippedFileTest, OffersOnlyKnownLinks)
{
    const std::set<std::string> known = {"USB-HID Device", "Demo", "SerialZorbus"};
    for (const std::string& product : initFile->ProductNameList())
        for (const std::string& link : controller.GetCommLinkNames(product))
            EXPECT_TRUE(known.contains(link)) << product << " " << link;
    EXPECT_EQ(controller.GetCommLinkNames("Vexlon"), (std::vector<std::string>{"USB-HID Device", "Demo"}));
    EXPECT_EQ(controller.GetCommLinkNames("Ossary-Plus"), std::vector<std::string>{"SerialZorbus"});
}

TEST_F(ShippedFileTest, MakesProductsForTheEnclosureBoards)
{
    for (const int id : {0xC4A0, 0xC4A1, 0xC4A2, 0xC4A3, 0xC4A4, 0xC4B0, 0xC4B1, 0xC4B2})
        EXPECT_EQ(initFile->GetProduct(id, 1)->Name(), "Cendra") << id;
    for (const int id : {0xC020, 0xC0A0})
        EXPECT_EQ(initFile->GetProduct(id, 24)->Name(), "Ossary") << id;
}

}
}

#include "config/ControllerFixture.h"

#include <fstream>
#include <set>

namespace tarvex {
namespace {

TEST_F(ControllerTest, InitializesEveryShippedDeviceWithDistinctRegisterPlaces)
{
    std::ifstream file(TARVEX_SHARE "/Tarvex.xml");
    Use({std::istreambuf_iterator<char>(file), {}});
    EXPECT_TRUE(initFile->CheckVendorID(0x12C5));
    const auto names = controller.GetDeviceNames(kAllOptions, kRegisterProtocol);
    EXPECT_EQ(names.size(), 8U);
    for (const std::string& name : names) {
        ASSERT_TRUE(controller.InitDevice(name)) << name;
        EXPECT_GT(controller.GetPropertyCount(), 0) << name;
        std::set<std::pair<std::int32_t, std::int32_t>> places;
        for (std::int16_t i = 0; i < controller.GetI2CRegisterCount(); ++i) {
            const auto each = controller.GetI2CRegister(i);
            EXPECT_TRUE(places.emplace(each->BaseAddress(), each->Address()).second) << name << " " << each->Name();
        }
    }
    EXPECT_EQ(controller.GetCommLinkNames("Vexlon"), (std::vector<std::string>{"USB-HID Device", "Demo"}));
    for (const int id : {0xC4A0, 0xC4B2})
        EXPECT_EQ(initFile->GetProduct(id, 1)->Name(), "Cendra") << id;
}

}
}

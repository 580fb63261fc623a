#include "config/ControllerFixture.h"
#include "support/FakeDevice.h"

namespace tarvex {
namespace {

using Names = std::vector<std::string>;

/// Two components; the first has the options "Copper" and "Fibre".
std::string TwoFamilies()
{
    InitFileBuilder first;
    first.links = InitFileBuilder::LinkXml("USB-HID Device", "NVSignalProcessing") +
                  InitFileBuilder::LinkXml("Ethernet", "NVControl") +
                  InitFileBuilder::LinkXml("Demo", "NVSignalProcessing");
    InitFileBuilder second;
    second.component = "Second";
    second.device = "Boarding House";
    std::string text = first.Text(second.Component());
    const std::string option = Xml("Fibre", Xml("ProductDescription", Xml("Name", "Light") + first.identity));
    return text.insert(text.find("</Option>"), option);
}

TEST_F(ControllerTest, RefusesToWorkWithoutAnInitFile)
{
    ExpectError([&] { controller.Init(nullptr); }, ObjectError(6), "TarvexController::Init", "Invalid init TarvexData");
    ExpectError([&] { controller.GetDeviceNames(kAllOptions, ""); }, ObjectError(6), "TarvexController::GetDeviceNames",
                "No Functional Components found in the init file");
}

TEST_F(ControllerTest, ListsDevicesOnceUntilTheNextInit)
{
    Use(TwoFamilies());
    std::vector<Names> raised;
    const auto subscription =
        controller.DeviceNamesChanged.Subscribe([&](const Names& names) { raised.push_back(names); });
    const Names all = {"Board", "Light", "Boarding House"};
    EXPECT_EQ(controller.GetDeviceNames(kAllOptions, "whatever"), all);
    EXPECT_EQ(controller.GetDeviceNames("Fibre", kRegisterProtocol), all) << "read once";
    EXPECT_EQ(raised, std::vector<Names>{all});
    EXPECT_EQ(controller.GetComponentProductNames(), all);
    controller.Init(initFile);
    EXPECT_EQ(controller.GetDeviceNames("Fibre", kRegisterProtocol), Names{"Light"});
    controller.Init(initFile);
    ExpectError([&] { controller.GetDeviceNames("Gold", ""); }, ObjectError(6), "TarvexController::GetDeviceNames",
                "No boards with the option Gold were found in the init file");
    EXPECT_EQ(raised.size(), 2U);
}

TEST_F(ControllerTest, KnowsLinksAndComponents)
{
    Use(TwoFamilies());
    EXPECT_EQ(controller.GetCommLinkNames("Board"), (Names{"USB-HID Device", "Demo"}));
    ExpectError([&] { controller.GetCommLinkNames("Light"); }, ObjectError(9), "TarvexController::GetCommLinkNames",
                "Unable to find comm links for Light");
    EXPECT_EQ(controller.GetComponentName("Light"), "Family");
    EXPECT_EQ(controller.GetComponentName("Boarding House"), "Second");
}

TEST_F(ControllerTest, SaysWhichDeviceItInitialized)
{
    UseBoard();
    std::vector<std::string> raised;
    const auto subscription =
        controller.CurrentProductChanged.Subscribe([&](std::int32_t vid, std::int32_t pid, const std::string& name) {
            raised.push_back(std::to_string(vid) + " " + std::to_string(pid) + " " + name);
        });
    EXPECT_FALSE(controller.InitDevice("board"));
    EXPECT_TRUE(raised.empty());
    ExpectBoardUntouched();
    EXPECT_TRUE(controller.InitDevice("Board"));
    EXPECT_EQ(raised, Names{"4805 2641 Board"});
    EXPECT_NE(controller.GetI2CRegister(0), kept);
}

TEST_F(ControllerTest, ConnectsToTheFirstDeviceThatTheAnswerNames)
{
    Use(TwoFamilies());
    controller.GetDeviceNames(kAllOptions, kRegisterProtocol);
    FakeDevice device;
    device.name = "The BOARDING machine"; // the first six letters of "Boarding House"; "Board" stands before it
    EXPECT_TRUE(controller.ConnectDevice("path", device));
    EXPECT_EQ(controller.deviceName(), "Board");
    device.canConnect = false;
    EXPECT_FALSE(controller.ConnectDevice("path", device));
}

TEST_F(ControllerTest, LetsGoOfABoardThatTheFileDoesNotKnow)
{
    UseBoard();
    FakeDevice device;
    device.name = "Toaster";
    prompts.ExpectMessage("Successful connection to Toaster but unable to find product in initialization file "
                          "/tmp/Tarvex.xml.  Disconnecting from Toaster.");
    EXPECT_FALSE(controller.ConnectDevice("path", device));
    EXPECT_FALSE(device.connected);
    ExpectBoardUntouched();
}

TEST_F(ControllerTest, SaysWhenAConnectedDeviceCannotBeInitialized)
{
    UseBoard();
    InitFileBuilder file;
    file.device = "Other";
    file.wordSize = "9";
    Use(file.Text());
    controller.GetDeviceNames(kAllOptions, kRegisterProtocol);
    FakeDevice device;
    device.name = "other";
    ExpectError([&] { controller.ConnectDevice("path", device); }, ObjectError(0x12C),
                "TarvexController::ConnectDevice", "Unable to initialize product Other");
    ASSERT_EQ(log.entries.size(), 1U);
    EXPECT_EQ(log.entries[0].description, "Invalid syntax in initialization file /tmp/Tarvex.xml");
    ExpectBoardUntouched();
}

}
}

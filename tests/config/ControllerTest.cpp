#include "config/ControllerFixture.h"
#include "support/FakeDevice.h"

namespace tarvex {
namespace {

TEST_F(ControllerTest, RefusesToWorkWithoutAnInitFile)
{
    ExpectError([&] { controller.Init(nullptr); }, ObjectError(6), "TarvexController::Init", "Invalid init TarvexData");
    ExpectError([&] { controller.GetDeviceNames(kAllOptions, ""); }, ObjectError(6), "TarvexController::GetDeviceNames",
                "No Functional Components found in the init file");
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

TEST_F(ControllerTest, TransfersEveryRegisterUntilTheLinkFails)
{
    UseBoard();
    FakeDevice device;
    device.memory[{0x451, 0x20}] = {5};
    EXPECT_TRUE(controller.ReadI2CRegister(device, "Gain", 7));
    EXPECT_EQ(device.transfers, (std::vector<FakeDevice::Transfer>{{FakeDevice::Kind::Read, 0x451, 0x20, {5}, 7}}));
    EXPECT_EQ(kept->value(), 5);
    ExpectError([&] { controller.ReadI2CRegister(device, "gain"); }, kErrInvalidCall);
    ExpectError([&] { controller.ReadPropertyByName(device, "gain"); }, 502);
    device.onTransfer = [&](const auto&) { controller.InitDevice("Board"); }; // ends on those it began with
    controller.WriteI2CRegister(device, "");
    EXPECT_EQ(device.Parameters(FakeDevice::Kind::Write), (std::vector<std::int32_t>{0x20, 0x21}));
    EXPECT_EQ(window.progress, (std::vector<std::string>{"tick 1", "0 of 2", "tick 1", "tick 1"}));
    device.raiseAt.emplace(FakeDevice::Place{0x451, 0x20}, Error(303, "link", "not connected"));
    ExpectError([&] { controller.ReadI2CRegister(device, ""); }, 303);
    EXPECT_EQ(device.transfers.size(), 3U);
}

}
}

#include "comm/HIDDevice.h"
#include "support/FakeHidServices.h"
#include "ui/advanced_rules/BoardFixture.h"

namespace tarvex {
namespace {

/// The actions on the real USB link, with a board that can be pulled out or break.
class UsbBoardTest : public BoardTest {
protected:
    UsbBoardTest()
    {
        Plug().known.attributes.productId = 0x0A51;
        services_.links[kHidDeviceType] = [this] { return std::make_shared<HIDDevice>(hid_, packetLog_, prompts_); };
        Start();
    }

    FakeHidBoard& Plug() { return *hid_.boards.front(); }

    FakeHidServices hid_;
};

TEST_F(UsbBoardTest, ABoardThatTakesNothingEndsTheRunAtOnce)
{
    board_->SelectProduct("Vexlon");
    EXPECT_EQ(Status(), "8 registers read, none failed.");
    board_->EditRegister("R1", 1);
    board_->EditRegister("R2", 2);
    Plug().sendError = ETIMEDOUT;
    Plug().sent.clear();
    board_->LoadConfiguration();
    EXPECT_EQ(Plug().sent.size(), 1U);
    EXPECT_EQ(Status().find("0 registers written, 1 failed. Stopped: the board takes nothing."), 0U);
    EXPECT_EQ(Changed(), (Names{"R1", "R2"}));

    Plug().sendError = 0;
    board_->LoadConfiguration();
    EXPECT_EQ(Status(), "2 registers written, none failed.");
}

TEST_F(UsbBoardTest, ABoardThatDoesNotAnswerIsNotRead)
{
    board_->SelectProduct("Vexlon");
    Plug().tamper = [](auto& answers) { answers.clear(); };
    prompts_.ExpectMessage("Unable to connect or verify communications to device Vexlon on USB-HID Device");
    board_->ReadConfiguration();
    EXPECT_EQ(Status(), "8 registers read, none failed.") << "of the start";
}

TEST_F(UsbBoardTest, AMissingRightIsSaidUnderTheBoxsOwnText)
{
    Plug().openError = EACCES;
    HIDDevice same(hid_, packetLog_, prompts_);
    same.connect(0x0A51, 0x12C5);
    const std::string hint = same.OpenRefusedHint("/prog");
    EXPECT_NE(hint.find("/prog/70-tarvex.rules"), std::string::npos);
    prompts_.ExpectMessage("Unable to connect or verify communications to device Vexlon on USB-HID Device\n\n" + hint);
    board_->SelectProduct("Vexlon");
    prompts_.ExpectMessage("Failed to connect to Vexlon\n\n" + hint);
    board_->LoadConfiguration();
}

}
}

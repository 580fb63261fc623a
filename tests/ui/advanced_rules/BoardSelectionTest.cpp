#include "ui/advanced_rules/BoardFixture.h"

namespace tarvex {

using Choices = std::vector<MenuChoice>;

const std::string kNoAnswer = "Unable to connect or verify communications to device Vexlon on USB-HID Device";

TEST_F(BoardTest, ALinkThatTheProgramLacksChangesNothing)
{
    StartWithVexlon();
    const auto device = document_->device();
    board_->SelectLink("SerialZorbus");
    EXPECT_EQ(document_->device(), device);
    EXPECT_TRUE(device->IsConnected());
    EXPECT_EQ(Status(), "The communication link SerialZorbus is not available.");
    EXPECT_EQ(view_.links, (Choices{{"USB-HID Device", true}, {"Demo", false}}));
    EXPECT_EQ(Reads().size(), 0U);
}

TEST_F(BoardTest, ANewLinkIsConnectedAndReadOnce)
{
    StartWithVexlon();
    const auto usb = usb_;
    board_->SelectLink("Demo");
    EXPECT_FALSE(usb->connected);
    EXPECT_EQ(view_.links, (Choices{{"USB-HID Device", false}, {"Demo", true}}));
    EXPECT_EQ(screen_.status.front(), "Changing underlying communication link.");
    EXPECT_EQ(Status(), "8 registers read, none failed.");

    const auto demo = document_->device();
    board_->SelectLink("Demo");
    EXPECT_NE(document_->device(), demo); // chosen by the name "Demo", it calls itself otherwise

    board_->SelectLink("USB-HID Device");
    EXPECT_NE(usb_, usb);
    EXPECT_EQ(usb_->calls, (Names{"connect", "VerifyCommunications"}));
    EXPECT_EQ(Reads().size(), std::size_t{kRegisters});
}

TEST_F(BoardTest, ADeviceThatIsNotFoundByItsIdsCanBePicked)
{
    prepareLink_ = [](FakeDevice& link) {
        link.foundByIds = false;
        link.browseAnswer = "VEXLON scaler (0x1)";
    };
    Start();
    prompts_.ExpectMessage(kNoAnswer);
    board_->SelectProduct("Vexlon");
    view_.fills = 0;

    prompts_.ExpectMessage("Connect now to device VEXLON scaler (0x1)", Answer::No);
    board_->ReadConfiguration();
    EXPECT_EQ(Reads().size(), 0U);

    usb_->canConnect = false;
    prompts_.ExpectMessage("Connect now to device VEXLON scaler (0x1)", Answer::Yes);
    prompts_.ExpectMessage("Unable to connect to VEXLON scaler (0x1)");
    board_->ReadConfiguration();
    EXPECT_EQ(view_.fills, 0);

    usb_->canConnect = true;
    prompts_.ExpectMessage("Connect now to device VEXLON scaler (0x1)", Answer::Yes);
    preferences_.autoConnect = true;
    view_.transfersEnabled = false;
    board_->SelectLink("USB-HID Device"); // also finds the device not connected
    EXPECT_GE(view_.fills, 1);
    EXPECT_TRUE(view_.transfersEnabled);
    EXPECT_EQ(Reads().size(), std::size_t{kRegisters});
    EXPECT_EQ(Status(), "Connected to VEXLON scaler (0x1)");
    EXPECT_EQ(prompts_.messages.back().buttons, Buttons::YesNo);

    usb_->connected = false;
    usb_->browseAnswer.clear();
    prompts_.ExpectMessage(kNoAnswer);
    board_->ReadConfiguration();
    EXPECT_EQ(Reads().size(), std::size_t{kRegisters});
}

TEST_F(BoardTest, AnotherBoardOnTheSameKindOfLinkIsConnectedAnew)
{
    StartWithVexlon();
    board_->SelectProduct("Vexlon-Fx_Channel1");
    EXPECT_EQ(std::count(usb_->calls.begin(), usb_->calls.end(), "Disconnect"), 1);
    board_->ReadConfiguration();
    EXPECT_EQ(std::count(usb_->calls.begin(), usb_->calls.end(), "connect"), 1);
}

TEST_F(BoardTest, WithoutADeviceEverythingSaysThatNothingIsConnected)
{
    StartWithVexlon();
    board_->SelectLink("Ethernet");
    ASSERT_EQ(DeviceType(), "none");
    prompts_.ExpectMessage("Unable to connect or verify communications to device Vexlon on ");
    board_->ReadConfiguration();
    prompts_.ExpectMessage("Failed to connect to Vexlon");
    board_->LoadConfiguration();
    prompts_.ExpectMessage("Unable to connect or verify communications to device Vexlon on ");
    board_->ReadSingleRegister("R1");
    view_.realTime = true;
    board_->EditRegister("R1", 9);
    EXPECT_EQ(Changed(), Names{"R1"});
    board_->RealTimeTicked();
    EXPECT_FALSE(view_.realTime);
    EXPECT_EQ(busyDepth_, 0);
}

}

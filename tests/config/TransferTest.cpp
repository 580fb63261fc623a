#include "config/ControllerFixture.h"
#include "support/FakeDevice.h"

namespace tarvex {
namespace {

using Notes = std::vector<std::string>;

class TransferTest : public ControllerTest {
protected:
    void SetUp() override
    {
        InitFileBuilder file;
        file.properties = PropertyXml("First", FieldXml("A", "Offset") + FieldXml("B", "Gain")) +
                          PropertyXml("Second", FieldXml("A", "Gain"));
        UseBoard(file);
    }

    Notes TakeNotes() { return std::exchange(window.notes, {}); }

    FakeDevice device;
};

TEST_F(TransferTest, ReadsOneRegisterOrAll)
{
    device.memory[{0x451, 0x20}] = {5};
    EXPECT_TRUE(controller.ReadI2CRegister(device, "Gain", 7));
    EXPECT_EQ(TakeNotes(), Notes{"tick 1"});
    EXPECT_EQ(device.transfers, (std::vector<FakeDevice::Transfer>{{FakeDevice::Kind::Read, 0x451, 0x20, {5}, 7}}));
    EXPECT_EQ(kept->value(), 5);
    EXPECT_FALSE(controller.ReadI2CRegister(device, "")) << "the last register's value is 0";
    EXPECT_EQ(TakeNotes(), (Notes{"range 2 from 0", "Reading register value for Gain", "tick 1",
                                  "Reading register value for Offset", "tick 1"}));
    EXPECT_EQ(device.transfers.back().aspi, kNoAspi);
}

TEST_F(TransferTest, WritesOneRegisterOrAll)
{
    controller.WriteI2CRegister(device, "Offset", 3);
    EXPECT_EQ(TakeNotes(), Notes{"Writing register value for Offset"});
    EXPECT_EQ(device.transfers.back().aspi, 3);
    controller.WriteI2CRegister(device, "");
    EXPECT_EQ(TakeNotes(), (Notes{"range 2 from 0", "Writing register value for Gain", "tick 1",
                                  "Writing register value for Offset", "tick 1"}));
    EXPECT_EQ(device.Parameters(FakeDevice::Kind::Write), (std::vector<std::int32_t>{0x21, 0x20, 0x21}));
}

TEST_F(TransferTest, TransfersOnePropertyOrAll)
{
    controller.ReadPropertyByName(device, "First");
    EXPECT_EQ(TakeNotes(), (Notes{"Reading property value for First", "tick 1"}));
    EXPECT_EQ(device.Parameters(FakeDevice::Kind::Read), (std::vector<std::int32_t>{0x21, 0x20}));
    controller.ReadPropertyByName(device, "");
    EXPECT_EQ(TakeNotes(), (Notes{"range 2 from 0", "Reading property value for First", "tick 1",
                                  "Reading property value for Second", "tick 1"}));
    controller.WritePropertyByName(device, "Second");
    EXPECT_EQ(TakeNotes(), Notes{"Writing property value for Second"});
    controller.WritePropertyByName(device, "");
    EXPECT_EQ(TakeNotes(), (Notes{"range 2 from 0", "Writing property value for First", "tick 1",
                                  "Writing property value for Second", "tick 1"}));
    EXPECT_EQ(device.Parameters(FakeDevice::Kind::Write), (std::vector<std::int32_t>{0x20, 0x21, 0x20, 0x20}));
}

TEST_F(TransferTest, RaisesForUnknownNamesAndFailingLinks)
{
    ExpectError([&] { controller.ReadI2CRegister(device, "gain"); }, kErrInvalidCall);
    ExpectError([&] { controller.WriteI2CRegister(device, "gain"); }, kErrInvalidCall);
    ExpectError([&] { controller.ReadPropertyByName(device, "gain"); }, 502);
    ExpectError([&] { controller.WritePropertyByName(device, "gain"); }, 502);
    EXPECT_TRUE(device.transfers.empty());
    device.raiseAt.emplace(FakeDevice::Place{0x451, 0x21}, Error(303, "link", "not connected"));
    ExpectError([&] { controller.ReadI2CRegister(device, ""); }, 303);
    EXPECT_EQ(device.transfers.size(), 1U);
}

TEST_F(TransferTest, CountsInTheProgressPlaceInUse)
{
    ProgressNotes wizard;
    controller.SetProgressBar(&wizard);
    controller.SetProgressBar(nullptr);
    controller.ReadI2CRegister(device, "");
    EXPECT_EQ(wizard.notes, (Notes{"range 2 from 0", "tick 1", "tick 1"}));
    EXPECT_EQ(window.notes.size(), 2U) << "the status line stays the main window's";
}

TEST_F(TransferTest, EndsOnTheRegistersItBeganWith)
{
    device.onTransfer = [&](const auto&) { controller.InitDevice("Board"); };
    controller.ReadI2CRegister(device, "");
    controller.WritePropertyByName(device, "");
    EXPECT_EQ(device.transfers.size(), 5U);
}

}
}

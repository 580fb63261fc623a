#include "config/ControllerFixture.h"
#include "support/FakeDevice.h"

#include <algorithm>

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
    for (const bool write : {false, true}) {
        const auto error = ErrorOf([&] {
            write ? controller.WriteI2CRegister(device, "gain") : void(controller.ReadI2CRegister(device, "gain"));
        });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), kErrInvalidCall);
    }
    EXPECT_EQ(ErrorOf([&] { controller.ReadPropertyByName(device, "gain"); })->Number(), 502);
    EXPECT_EQ(ErrorOf([&] { controller.WritePropertyByName(device, "gain"); })->Number(), 502);
    EXPECT_TRUE(device.transfers.empty());
    device.raiseAt.emplace(FakeDevice::Place{0x451, 0x21}, Error(303, "link", "not connected"));
    EXPECT_EQ(ErrorOf([&] { controller.ReadI2CRegister(device, ""); })->Number(), 303);
    EXPECT_EQ(device.transfers.size(), 1U);
}

TEST_F(TransferTest, CountsEveryRegisterOnceInTheProgressPlaceInUse)
{
    UseBoard(ManyRegisters(40));
    ProgressNotes wizard;
    controller.SetProgressBar(&wizard);
    controller.SetProgressBar(nullptr);
    controller.ReadI2CRegister(device, "");
    EXPECT_EQ(wizard.notes.front(), "range 40 from 0");
    EXPECT_EQ(std::count(wizard.notes.begin(), wizard.notes.end(), "tick 1"), 40);
    EXPECT_EQ(wizard.notes.size(), 41U) << "the status line stays the main window's";
    EXPECT_EQ(window.notes.size(), 40U);
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

#include "comm/SerialZorbusFixture.h"

#include "comm/CalculateASPI.h"
#include "comm/SerialZorbusTexts.h"
#include "model/RegisterObject.h"
#include "support/ExpectError.h"

namespace tarvex {
namespace {

TEST_F(SerialZorbusTest, SpeaksOnlyToTheNodeAskedFor)
{
    Start();
    EXPECT_EQ(link_->connect(0x1A2B, kVendorId), 1);
    EXPECT_EQ(link_->connect(0x1A2B, kVendorId), 1);
    EXPECT_EQ(world_.Take(), (Lines{"ReadNodeRecord(0x1A2B, 1) = ok: True", "Connected"}));
    EXPECT_EQ(link_->connect(0x1A2C, kVendorId), 1);
    link_->WriteTo(0xC4, 0x11, {7}, 1, 17);
    EXPECT_EQ(world_.Take(), (Lines{"Disconnected", "ReadNodeRecord(0x1A2C, 1) = ok: True", "Connected",
                                    "WriteParameter(0x1A2C, 0, 17, 0xC4, 0x11, 7, 1, 0) = ok: True", "WriteSuccess"}));
    EXPECT_EQ(link_->connect(0x4D55, kVendorId), 0) << "mute";
    ExpectError([&] { link_->WriteTo(0xC4, 0x11, {7}, 1, 17); }, 303, "ZorbusSerial::WriteTo",
                "Cannot write packet to SerialZorbus because not connected.");
    EXPECT_FALSE(link_->VerifyCommunications(0, 0)) << "the old node must not come back";
    EXPECT_EQ(link_->ConnectToPath("Kestra Rack (0x1A2B) (0x333)"), 1);
    EXPECT_EQ(link_->ProductID(), 0x333);
    EXPECT_EQ(link_->productName(), " Transmitter (0x333)");
    world_.Take();
    EXPECT_EQ(link_->ConnectToPath("Kestra Rack M (0x4D55)"), 0);
    const Lines attempt{"ReadNodeRecord(0x4D55, 2) = ok: False"};
    EXPECT_EQ(world_.Take(), (Lines{"CloseZone(1) = ok", "Disconnected", "OpenZone(1, 9600, True) = ok: 2", attempt[0],
                                    "query", "pause 1000", attempt[0], attempt[0], "query over", "Connected"}));
    EXPECT_FALSE(link_->IsConnected() || link_->VerifyCommunications(0, 0));
    EXPECT_EQ(world_.Take(), (Lines{"SerialZorbus: Verifying Communications to 0x4D55",
                                    "PingNode(0x4D55, 2) = ok: False", "ERROR: ping failed to 0x4D55"}));
    for (const std::string path : {"", "Kestra", "(0x", "(0xZZ)", "(0x123456789)"})
        EXPECT_EQ(link_->ConnectToPath(path), 0) << path;
    EXPECT_EQ(world_.Take(), Lines{});
    Start("<Fault operation='ReadNodeRecord' node='1A2C' times='3'/>");
    EXPECT_EQ(link_->connect(0x1A2B, kVendorId) + link_->ConnectToPath("(0x1A2C)"), 1);
    EXPECT_EQ(link_->connect(0x1A2C, kVendorId), 1);
    EXPECT_EQ(link_->productName(), "Kestra Rack B (0x1A2C)") << "late, but not under the old name";
}

TEST_F(SerialZorbusTest, FindsTheNodesOfThePort)
{
    Start();
    world_.chosen = 4;
    EXPECT_EQ(link_->Browse(), " Transmitter (0x333)");
    EXPECT_EQ(world_.entries, (Lines{kRackA, "Kestra Rack B (0x1A2C)", " Matrix (0x2401)", "Kestra Rack C (0x1A2D)",
                                     " Transmitter (0x333)", "no response from 0x4D55"}));
    EXPECT_EQ(world_.Take(),
              (Lines{"query", "pause 1000", "DiscoverNodes(19, 1) = ok: 6", "ReadNodeRecord(0x1A2B, 1) = ok: True",
                     "ReadNodeRecord(0x1A2C, 1) = ok: True", "ReadNodeRecord(0x2401, 1) = ok: True",
                     "ReadNodeRecord(0x1A2D, 1) = ok: True", "ReadNodeRecord(0x333, 1) = ok: True",
                     "ReadNodeRecord(0x4D55, 1) = ok: False", "query over"}));
    EXPECT_EQ(link_->CreateNode(kRackA).firmwareVersion, "2.10");
    ExpectError([&] { link_->CreateNode("Kestra (0x1A2B"); }, 900, "SerialZorbus::ExtractZorbusID",
                "Invalid Browse string");
    ExpectError([&] { link_->CreateNode("(0x4D55)"); }, kErrInvalidCall);
    world_.chosen.reset();
    EXPECT_EQ(link_->Browse(), "");
    world_.cancelled = true;
    world_.entries.clear();
    EXPECT_EQ(link_->Browse(), "");
    EXPECT_EQ(world_.entries, Lines{}) << "given up, nothing is asked";
    world_.cancelled = false;

    Start({}, 2);
    world_.ExpectMessage("Discovered a single enclosure: Kestra Rack S (0x1B01)");
    EXPECT_EQ(link_->Browse(), "Kestra Rack S (0x1B01)");
    for (const std::int16_t silent : std::initializer_list<std::int16_t>{3, 4, 5, 9}) {
        Start({}, silent);
        EXPECT_EQ(link_->Browse(), "") << silent;
        EXPECT_EQ(link_->connect(0x1C01, kVendorId), 0);
    }
}

TEST_F(SerialZorbusTest, ReadsAndWritesWholeRegisters)
{
    Start("<Fault operation='ReadParameter' aspi='25' times='1'/>"
          "<Fault operation='WriteParameter' aspi='25' times='1' as='refused'/>");
    link_->ConnectToPath(kRackA);
    world_.Take();
    Bytes bytes;
    link_->WriteTo(0xC4, 0x11, {0x12, 0}, 2, 17);
    EXPECT_EQ(Read(17, bytes, 2), 2) << "a high byte of zero is delivered, too";
    EXPECT_EQ(bytes, (Bytes{0x12, 0, 0, 0}));
    EXPECT_EQ(world_.Take(), (Lines{"WriteParameter(0x1A2B, 0, 17, 0xC4, 0x11, 18, 1, 0) = ok: True", "WriteSuccess",
                                    "ReadParameter(0x1A2B, 0, 17, 0xC4, 0x11, 1, 0) = ok: 18, True", "ReadSuccess"}));
    EXPECT_EQ(Read(25, bytes), 0);
    link_->WriteTo(0xC4, 0x11, {1}, 1, 25);
    EXPECT_EQ(world_.Take(),
              (Lines{"ReadParameter(0x1A2B, 0, 25, 0xC4, 0x11, 1, 0) = 0x80004005", "ReadFailure",
                     "WriteParameter(0x1A2B, 0, 25, 0xC4, 0x11, 1, 1, 0) = ok: refused", "WriteFailure"}));
    EXPECT_EQ(world_.log.entries.size(), 1U) << "a bad status is logged";
    link_->WriteTo(0xC4, 0x11, {0, 0, 0, 0x80}, 4, 17);
    EXPECT_EQ(Read(17, bytes), 0) << "a negative value is a failed read";
    EXPECT_EQ(link_->FailureCount(), 3);
    world_.Take();
    ExpectError([&] { Read(kNoAspi, bytes); }, 305, "ZorbusSerial::ReadFrom", "ASPI required parameter");
    const auto refused = [this](std::int32_t base, std::int32_t parameter, std::int16_t count, std::int32_t number) {
        ExpectError([&] { link_->WriteTo(base, parameter, Bytes(32), count, 0); }, number);
    };
    refused(0xC4, 0x10000, 1, 700);
    refused(-1, 1, 1, 701);
    refused(0xC4, 1, 32, 702);
    refused(0x8000, 1, 1, kErrOverflow);
    refused(0xC4, 1, 5, 10);
    EXPECT_EQ(world_.Take(), Lines{}) << "nothing refused reaches the library";
}

TEST_F(SerialZorbusTest, ReachesTheProcessorOfEachProduct)
{
    struct Case {
        std::int32_t node, enclosure, base;
        std::int16_t connector;
        const char* place; ///< in the journal
    };
    for (const Case& each :
         {Case{0x1A2B, 1, 0xC4, 3, "0x1A2B, 0, 17, 0xC4"}, Case{0x2401, 24, 0xC0, 3, "0x2401, 0, 16, 0xC0"},
          Case{0x333, 17, 0xCB, 1, "0x333, 0, 1, 0xCB"}}) {
        Start();
        RegisterObject skew;
        skew.Init(each.base, 0x11, 0, 8, "Green_Skew", "");
        const std::int16_t aspi = CalculateASPI(each.connector, &skew, each.enclosure);
        EXPECT_EQ(link_->connect(each.node, kVendorId), 1);
        world_.Take();
        link_->WriteTo(each.base, 0x11, {0x5A}, 1, aspi);
        std::int16_t count = 1;
        EXPECT_EQ(link_->ReadFrom(each.base, 0x11, count, aspi)[0], 0x5A);
        const std::string place = each.place;
        EXPECT_EQ(world_.Take(), (Lines{"WriteParameter(" + place + ", 0x11, 90, 1, 0) = ok: True", "WriteSuccess",
                                        "ReadParameter(" + place + ", 0x11, 1, 0) = ok: 90, True", "ReadSuccess"}));
    }
}

TEST_F(SerialZorbusTest, SavesAndRestarts)
{
    Start();
    EXPECT_FALSE(link_->ResetCache() || link_->RestoreCache() || link_->Reboot());
    link_->ConnectToPath(kRackA);
    std::vector<std::int32_t> slots;
    EXPECT_EQ(link_->GetIOSlotPops(slots), 3);
    EXPECT_EQ(slots, (std::vector<std::int32_t>{0xC4A0, 0, 0xC4A0})) << "not sign-extended";
    link_->WriteTo(0xC4, 0x11, {9}, 1, 17);
    EXPECT_TRUE(link_->ResetCache());
    link_->WriteTo(0xC4, 0x11, {8}, 1, 17);
    world_.Take();
    EXPECT_TRUE(link_->Reboot());
    const std::string silent = "PingNode(0x1A2B, 1) = ok: False";
    EXPECT_EQ(world_.Take(), (Lines{"RebootNode(0x1A2B, 1) = ok", silent, silent, "PingNode(0x1A2B, 1) = ok: True"}));
    Bytes bytes;
    EXPECT_EQ(Read(17, bytes), 1);
    EXPECT_EQ(bytes[0], 9) << "what was not saved is gone";
    Start("<Fault operation='PingNode'/>");
    link_->ConnectToPath(kRackA);
    EXPECT_EQ(Read(17, bytes), 1);
    EXPECT_EQ(bytes[0], 9) << "saved, and there after a new start";
    world_.Take();
    EXPECT_FALSE(link_->Reboot());
    EXPECT_EQ(world_.Take().size(), 1U + 5U);
}

TEST_F(SerialZorbusTest, FollowsItsSettings)
{
    Start();
    EXPECT_EQ(world_.state.libraryVersionText, "Library version: 1.1.11 (ZorbusLib.dll-NorvaneSystem.dll)");
    link_->ConnectToPath(kRackA);
    CommSettings settings = link_->Settings();
    EXPECT_EQ(SettingsText(settings), "Serial Port:COM_1:9600:True");
    world_.Take();
    link_->SetCommParameters(settings);
    EXPECT_EQ(world_.Take(), Lines{});
    settings.keepLinkOpen = false;
    link_->SetCommParameters(settings);
    EXPECT_TRUE(link_->IsConnected());
    EXPECT_EQ(world_.Take(), (Lines{"CloseZone(1) = ok", "pause 3000", "OpenZone(1, 9600, False) = ok: 2",
                                    "ReadNodeRecord(0x1A2B, 2) = ok: True"}));
    settings.comPort = 4;
    link_->SetCommParameters(settings);
    EXPECT_FALSE(link_->IsConnected());
    EXPECT_EQ(world_.Take(),
              (Lines{"CloseZone(2) = ok", "pause 3000", "OpenZone(4, 9600, False) = 0x80070005", "Disconnected"}));
    settings.comPort = 2;
    link_->SetCommParameters(settings);
    world_.Take();
    MakeLink(settings); // the port is still the old link's, which then leaves it
    world_.Take();
    EXPECT_EQ(link_->connect(0x1B01, kVendorId), 1);
    const Lines lines = world_.Take();
    EXPECT_TRUE(lines[0].starts_with("pause ") && lines[1].starts_with("OpenZone(2, ")) << lines[0];
    settings.kind = 2;
    ExpectError([&] { link_->SetCommParameters(settings); }, 902, "SerialZorbus::SetCommParameters",
                "Must be NVCommSetting_SerialPort.");
    library_.reset();
    ExpectError([&] { MakeLink(settings); }, 304, "SerialZorbus::Initialize",
                "Unable to get handle to Norvane.System.");
}

}
}

#include "comm/SerialZorbus.h"

#include "base/Numbers.h"
#include "base/ProgramState.h"
#include "base/Text.h"
#include "comm/CalculateASPI.h"
#include "comm/SerialZorbusTexts.h"
#include "comm/api/IPacketLog.h"
#include "model/RegisterObject.h"
#include "platform/files/PosixFileSystem.h"
#include "platform/zorbus/SimulatedNorvaneSystem.h"
#include "support/ExpectError.h"
#include "support/FakeErrorLog.h"
#include "support/FakeFileSystem.h"
#include "support/FakeWait.h"
#include "support/ScriptedPrompts.h"

#include <cstdlib>
#include <random>

namespace tarvex {
namespace {

using Lines = std::vector<std::string>;

const std::string kRackA = "Kestra Rack A (0x1A2B)";
const std::string kShipped = PosixFileSystem().ReadWholeFile(TARVEX_SHARE "/ZorbusNetwork.xml", 100'000);
/// Two enclosures, quickly made.
const std::string kSmall =
    "<ZorbusNetwork><Port number='1'><Node id='1A2B'><Slots>C4A0</Slots><Processors aspi='17'><Parameter base='C4' "
    "id='11'/></Processors></Node><Node id='1A2C' silentPings='3'/></Port></ZorbusNetwork>";

/// The surroundings of a link, which all write into the library's journal, so that one list tells what came when.
class Surroundings : public FakeWait, public ScriptedPrompts, public IPacketLog {
public:
    struct Query : IQueryWindow {
        explicit Query(Surroundings& world) : world_(world) { world_.Note("query"); }
        ~Query() override { world_.Note("query over"); }
        bool Cancelled() const override { return false; }
        Surroundings& world_;
    };

    void Note(const std::string& line) { files.files["journal"] += line + "\n"; }
    Lines Take()
    {
        Lines lines = Split(std::exchange(files.files["journal"], ""), "\n");
        lines.pop_back();
        return lines;
    }

    void Pause(std::chrono::milliseconds time) override { Note("pause " + std::to_string(time.count())); }
    std::optional<std::size_t> BrowseForDevice(const std::vector<std::string>& shown) override
    {
        entries = shown;
        return chosen;
    }
    std::unique_ptr<IQueryWindow> ShowQueryProgress() override { return std::make_unique<Query>(*this); }
    bool IsPacketLogging() const noexcept override { return true; }
    void LogPacket(PacketDirection, const Bytes&, std::size_t, int) noexcept override {}
    void LogPacketError(PacketDirection, std::string_view) noexcept override {}
    void LogText(std::string_view line) noexcept override { Note(std::string(line)); }

    FakeFileSystem files;
    FakeErrorLog log;
    Lines entries;
    std::optional<std::size_t> chosen;
    ProgramState state;
    ZoneRest rest;
};

class SerialZorbusTest : public testing::Test {
protected:
    void Start(const std::string& faults = {}, std::int16_t port = 1)
    {
        events_.clear();
        link_.reset();
        world_.rest = {};
        const std::size_t root = network_.find("<ZorbusNetwork");
        const std::size_t inside = network_.find('>', root) + 1;
        world_.files.files["net"] = "<ZorbusNetwork waitFactor='0'>" + faults + network_.substr(inside);
        library_ = std::make_shared<SimulatedNorvaneSystem>(
            SimulatedNetworkFiles{"net", true, "flash", "journal"},
            SimulatedNorvaneSystem::Services{&world_.files, &world_, &world_.log});
        MakeLink({kSerialPortKind, 9600, "", true, port, 0});
        world_.Take();
    }

    void MakeLink(const CommSettings& settings)
    {
        link_ = std::make_unique<SerialZorbus>(SerialZorbusServices{[this] { return library_; }, world_.state, world_,
                                                                    world_.log, world_, world_, world_.rest},
                                               settings);
        const auto note = [this](auto& event, const char* name) {
            events_.push_back(event.Subscribe([this, name](auto...) { world_.Note(name); }));
        };
        note(link_->ReadSuccess, "ReadSuccess");
        note(link_->ReadFailure, "ReadFailure");
        note(link_->WriteSuccess, "WriteSuccess");
        note(link_->WriteFailure, "WriteFailure");
        note(link_->Connected, "Connected");
        note(link_->Disconnected, "Disconnected");
    }

    std::int16_t Read(std::int16_t aspi, Bytes& bytes, std::int16_t wanted = 1)
    {
        bytes = link_->ReadFrom(0xC4, 0x11, wanted, aspi);
        return wanted;
    }

    Surroundings world_;
    std::string network_ = kShipped;
    std::shared_ptr<SimulatedNorvaneSystem> library_;
    std::unique_ptr<SerialZorbus> link_;
    std::vector<Subscription> events_;
};

TEST_F(SerialZorbusTest, SpeaksOnlyToTheNodeAskedFor)
{
    Start();
    EXPECT_EQ(link_->connect(0x1A2B, kNorvaneVendorId), 1);
    EXPECT_EQ(link_->connect(0x1A2B, kNorvaneVendorId), 1);
    EXPECT_EQ(world_.Take(), (Lines{"ReadNodeRecord(0x1A2B, 1) = ok: True", "Connected"}));
    EXPECT_EQ(link_->connect(0x1A2C, kNorvaneVendorId), 1);
    link_->WriteTo(0xC4, 0x11, {7}, 1, 17);
    EXPECT_EQ(world_.Take(), (Lines{"Disconnected", "ReadNodeRecord(0x1A2C, 1) = ok: True", "Connected",
                                    "WriteParameter(0x1A2C, 0, 17, 0xC4, 0x11, 7, 1, 0) = ok: True", "WriteSuccess"}));
    EXPECT_EQ(link_->connect(0x4D55, kNorvaneVendorId), 0) << "mute";
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
    EXPECT_EQ(link_->connect(0x1A2B, kNorvaneVendorId) + link_->ConnectToPath("(0x1A2C)"), 1);
    EXPECT_EQ(link_->connect(0x1A2C, kNorvaneVendorId), 1);
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
        EXPECT_EQ(link_->connect(0x1C01, kNorvaneVendorId), 0);
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
        EXPECT_EQ(link_->connect(each.node, kNorvaneVendorId), 1);
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
    EXPECT_EQ(link_->connect(0x1B01, kNorvaneVendorId), 1);
    const Lines lines = world_.Take();
    EXPECT_TRUE(lines[0].starts_with("pause ") && lines[1].starts_with("OpenZone(2, ")) << lines[0];
    settings.kind = 2;
    ExpectError([&] { link_->SetCommParameters(settings); }, 902, "SerialZorbus::SetCommParameters",
                "Must be NVCommSetting_SerialPort.");
    library_.reset();
    ExpectError([&] { MakeLink(settings); }, 304, "SerialZorbus::Initialize",
                "Unable to get handle to Norvane.System.");
}

/// The operations in turn: a letter for each that succeeded, - for each that did not.
class SerialZorbusFaultTest : public SerialZorbusTest {
protected:
    std::string OneRound()
    {
        std::string told;
        const auto tell = [&told](char letter, bool done) { told += done ? letter : '-'; };
        std::vector<std::int32_t> slots;
        world_.chosen = 0;
        tell('B', !link_->Browse().empty());
        tell('C', link_->ConnectToPath("(0x1A2B)") == 1);
        tell('S', link_->GetIOSlotPops(slots) == 1);
        tell('L', link_->StartLogging("capture"));
        tell('V', link_->VerifyCommunications(0, 0));
        if (link_->IsConnected()) {
            Bytes bytes;
            link_->WriteTo(0xC4, 0x11, {7}, 1, 17);
            const Lines lines = world_.Take();
            tell('w', lines.back() == "WriteSuccess");
            tell('r', Read(17, bytes) == 1);
        }
        tell('k', link_->ResetCache());
        tell('K', link_->RestoreCache());
        tell('R', link_->Reboot());
        CommSettings settings = link_->Settings();
        settings.keepLinkOpen = !settings.keepLinkOpen;
        link_->SetCommParameters(settings);
        tell('O', link_->IsConnected());
        return told;
    }
};

TEST_F(SerialZorbusFaultTest, EachOperationFailsOnceAlwaysAndLater)
{
    struct Case {
        const char *operation, *once, *always, *later; ///< what two rounds do
        int failures;                                  ///< counted when it always fails
    };
    network_ = kSmall;
    for (const Case& each : std::initializer_list<Case>{
             {"OpenZone", "BCSLVwrkKRO BCSLVwrkKRO", "---L----- ---L-----", "BCSLVwrkKR- -CSLVwrkKRO", 0},
             {"CloseZone", "BCSLVwrkKR- ---L-----", "BCSLVwrkKR- ---L-----", "BCSLVwrkKRO BCSLVwrkKR-", 0},
             {"StartCaptureLog", "BCS-VwrkKRO BCSLVwrkKRO", "BCS-VwrkKRO BCS-VwrkKRO", "BCSLVwrkKRO BCS-VwrkKRO", 0},
             {"DiscoverNodes", "-CSLVwrkKRO BCSLVwrkKRO", "-CSLVwrkKRO -CSLVwrkKRO", "BCSLVwrkKRO -CSLVwrkKRO", 0},
             {"ReadNodeRecord", "BCSLVwrkKRO BCSLVwrkKRO", "B--LVwrkKR- B--LVwrkKR-", "BCSLVwrkKRO BCSLVwrkKRO", 0},
             {"PingNode", "BCSL-wrkKRO BCSLVwrkKRO", "BCSL-wrkK-O BCSL-wrkK-O", "BCSLVwrkKRO BCSLVwrkKRO", 0},
             {"RebootNode", "BCSLVwrkK-O BCSLVwrkKRO", "BCSLVwrkK-O BCSLVwrkK-O", "BCSLVwrkKRO BCSLVwrkK-O", 0},
             {"CommandNode", "BCSLVwr-KRO BCSLVwrkKRO", "BCSLVwr--RO BCSLVwr--RO", "BCSLVwrk-RO BCSLVwr-KRO", 0},
             {"ReadSlotPopulation", "BC-LVwrkKRO BCSLVwrkKRO", "BC-LVwrkKRO BC-LVwrkKRO", "BCSLVwrkKRO BC-LVwrkKRO", 0},
             {"ReadParameter", "BCSLVw-kKRO BCSLVwrkKRO", "BCSLVw-kKRO BCSLVw-kKRO", "BCSLVwrkKRO BCSLVw-kKRO", 2},
             {"WriteParameter", "BCSLV-rkKRO BCSLVwrkKRO", "BCSLV-rkKRO BCSLV-rkKRO", "BCSLVwrkKRO BCSLV-rkKRO", 2}})
        for (const auto& [rule, expected] :
             {std::pair("times='1'", each.once), {"", each.always}, {"after='1' times='2'", each.later}}) {
            SCOPED_TRACE(std::string(each.operation) + " " + rule);
            world_.log.entries.clear();
            Start("<Fault operation='" + std::string(each.operation) + "' " + rule + "/>");
            const std::string first = OneRound();
            EXPECT_EQ(first + " " + OneRound(), expected);
            const bool isAlways = std::string(rule).empty();
            EXPECT_TRUE(!isAlways || link_->FailureCount() == each.failures);
            EXPECT_FALSE(world_.log.entries.empty()) << "a bad status is logged";
        }
}

TEST_F(SerialZorbusFaultTest, SurvivesAnySequenceOfFaults)
{
    const Lines operations = Split("OpenZone CloseZone DiscoverNodes ReadNodeRecord PingNode RebootNode CommandNode "
                                   "ReadSlotPopulation ReadParameter WriteParameter ",
                                   " "); // the last, without a name, is all of them
    network_ = kSmall;
    std::mt19937 random(4711);
    const auto below = [&random](std::uint32_t limit) { return static_cast<std::int32_t>(random() % limit); };
    for (int round = std::getenv("TARVEX_LONG") ? 10'000 : 1'000; round > 0 && !HasFailure(); --round) {
        std::string faults;
        for (int k = 0; k < 4; ++k)
            faults += "<Fault operation='" + operations[static_cast<std::size_t>(below(11))] + "' after='" +
                      std::to_string(below(6)) + "' times='" + std::to_string(below(4)) +
                      (below(2) == 0 ? "' as='refused'/>" : "'/>");
        Start(faults);
        std::int32_t wanted = 0;
        std::int16_t failures = 0;
        for (int step = 0; step < 20; ++step) {
            const int action = below(6);
            const bool wasConnected = link_->IsConnected();
            world_.Take();
            if (action < 2) {
                wanted = below(2) == 0 ? 0x1A2B : 0x1A2C;
                const auto done = action == 0 ? link_->connect(wanted, kNorvaneVendorId)
                                              : link_->ConnectToPath("(0x" + ToHex(wanted) + ")");
                EXPECT_EQ(done == 1, link_->IsConnected());
            } else if (action == 2) {
                link_->SetCommParameters({kSerialPortKind, 9600, "", below(2) == 0, 1, 0});
                EXPECT_TRUE(wasConnected || !link_->IsConnected());
            } else if (action == 3) {
                const bool answered = link_->VerifyCommunications(0, 0);
                EXPECT_TRUE(link_->IsConnected() || !answered);
            } else if (action == 4) {
                OneRound();
                wanted = 0x1A2B; // which a ping that is answered makes connected again
                failures = link_->FailureCount();
            } else if (wasConnected) {
                Bytes bytes;
                const bool isRead = Read(17, bytes) == 1;
                EXPECT_EQ(link_->ProductID(), wanted);
                const Lines lines = world_.Take();
                EXPECT_TRUE(lines.size() <= 2 && lines.back() == (isRead ? "ReadSuccess" : "ReadFailure"));
                EXPECT_TRUE(lines.size() < 2 || lines[0].starts_with("ReadParameter(0x" + ToHex(wanted) + ","));
                failures = static_cast<std::int16_t>(failures + (isRead ? 0 : 1));
            }
            EXPECT_EQ(link_->FailureCount(), failures);
        }
    }
}

}
}

#include "comm/SerialZorbusFixture.h"

#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <random>

namespace tarvex {
namespace {

/// Two enclosures, quickly made.
const std::string kSmall =
    "<ZorbusNetwork><Port number='1'><Node id='1A2B'><Slots>C4A0</Slots><Processors aspi='17'><Parameter base='C4' "
    "id='11'/></Processors></Node><Node id='1A2C' silentPings='3'/></Port></ZorbusNetwork>";

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
        const char *operation, *once, *always, *later;                      ///< what two rounds do
        std::array<std::pair<int, int>, 3> links{{{1, 0}, {1, 0}, {1, 0}}}; ///< Connected and Disconnected of them
    };
    network_ = kSmall;
    for (const Case& each : std::initializer_list<Case>{
             {"OpenZone",
              "BCSLVwrkKRO BCSLVwrkKRO",
              "---L----- ---L-----",
              "BCSLVwrkKR- -CSLVwrkKRO",
              {{{1, 0}, {2, 0}, {2, 1}}}},
             {"CloseZone",
              "BCSLVwrkKRO BCSLVwrkKRO",
              "BCSLVwrkKR- ---L-----",
              "BCSLVwrkKRO BCSLVwrkKR-",
              {{{1, 0}, {2, 1}, {1, 1}}}},
             {"StartCaptureLog", "BCS-VwrkKRO BCSLVwrkKRO", "BCS-VwrkKRO BCS-VwrkKRO", "BCSLVwrkKRO BCS-VwrkKRO"},
             {"DiscoverNodes", "-CSLVwrkKRO BCSLVwrkKRO", "-CSLVwrkKRO -CSLVwrkKRO", "BCSLVwrkKRO -CSLVwrkKRO"},
             {"ReadNodeRecord",
              "BCSLVwrkKRO BCSLVwrkKRO",
              "B--LVwrkKR- B--LVwrkKR-",
              "BCSLVwrkKRO BCSLVwrkKRO",
              {{{1, 0}, {2, 2}, {1, 0}}}},
             {"PingNode", "BCSL-wrkKRO BCSLVwrkKRO", "BCSL-wrkK-O BCSL-wrkK-O", "BCSLVwrkKRO BCSLVwrkKRO"},
             {"RebootNode", "BCSLVwrkK-O BCSLVwrkKRO", "BCSLVwrkK-O BCSLVwrkK-O", "BCSLVwrkKRO BCSLVwrkK-O"},
             {"CommandNode", "BCSLVwr-KRO BCSLVwrkKRO", "BCSLVwr--RO BCSLVwr--RO", "BCSLVwrk-RO BCSLVwr-KRO"},
             {"ReadSlotPopulation", "BC-LVwrkKRO BCSLVwrkKRO", "BC-LVwrkKRO BC-LVwrkKRO", "BCSLVwrkKRO BC-LVwrkKRO"},
             {"ReadParameter", "BCSLVw-kKRO BCSLVwrkKRO", "BCSLVw-kKRO BCSLVw-kKRO", "BCSLVwrkKRO BCSLVw-kKRO"},
             {"WriteParameter", "BCSLV-rkKRO BCSLVwrkKRO", "BCSLV-rkKRO BCSLV-rkKRO", "BCSLVwrkKRO BCSLV-rkKRO"}})
        for (const auto& [rule, expected, links] : {std::tuple("times='1'", each.once, each.links[0]),
                                                    {"", each.always, each.links[1]},
                                                    {"after='1' times='2'", each.later, each.links[2]}}) {
            SCOPED_TRACE(std::string(each.operation) + " " + rule);
            world_.log.entries.clear();
            Start("<Fault operation='" + std::string(each.operation) + "' " + rule + "/>");
            const std::string first = OneRound();
            const std::string told = first + " " + OneRound();
            EXPECT_EQ(told, expected);
            EXPECT_EQ(std::pair(heard_["Connected"], heard_["Disconnected"]), links);
            const auto transfers = static_cast<std::ptrdiff_t>(told.size() - std::strlen("BCSLVkKRO BCSLVkKRO"));
            const auto count = [&told](char letter) { return std::count(told.begin(), told.end(), letter); };
            EXPECT_EQ(heard_["WriteSuccess"], count('w'));
            EXPECT_EQ(heard_["ReadSuccess"], count('r'));
            EXPECT_EQ(heard_["WriteFailure"] + heard_["ReadFailure"], transfers - count('w') - count('r'));
            EXPECT_EQ(heard_["WriteFailure"] + heard_["ReadFailure"], link_->FailureCount());
            ASSERT_FALSE(world_.log.entries.empty());
            EXPECT_EQ(world_.log.entries[0].description,
                      "The network library failed at " + std::string(each.operation));
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
                const auto done =
                    action == 0 ? link_->connect(wanted, kVendorId) : link_->ConnectToPath("(0x" + ToHex(wanted) + ")");
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

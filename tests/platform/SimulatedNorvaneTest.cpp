#include "platform/files/PosixFileSystem.h"
#include "platform/zorbus/SimulatedNorvaneSystem.h"
#include "support/ExpectError.h"
#include "support/FakeErrorLog.h"
#include "support/FakeFileSystem.h"
#include "support/FakeWait.h"

namespace tarvex {
namespace {

const std::string kNodes = "<Port number='1'><Node id='1A2B' silentPings='2'><Slots>C4A0 0</Slots>"
                           "<Processors aspi='0 8'><Parameter base='C4' id='10' value='5'/>"
                           "<Parameter base='C4' id='11' access='ReadOnly'/></Processors></Node>"
                           "</Port>";

class SimulatedNorvaneTest : public testing::Test {
protected:
    /// A library on a network of these elements, with its zone on COM 1 open.
    void Start(const std::string& elements)
    {
        files_.files["net.xml"] = "<ZorbusNetwork>" + elements + "</ZorbusNetwork>";
        system_.emplace(SimulatedNetworkFiles{"net.xml", true, "flash", "journal"},
                        SimulatedNorvaneSystem::Services{&files_, &wait_, &log_});
        zone_ = Open(1, 9600);
    }

    ZoneHandle Open(std::int16_t port, std::int32_t baudRate)
    {
        ZoneHandle zone = kNoZone;
        status_ = system_->OpenZone(port, baudRate, kNorvaneTrue, zone);
        return zone;
    }

    /// The value of a parameter; -1 when it was not read.
    std::int32_t Read(std::int16_t aspi, std::int16_t parameter = 0x10)
    {
        std::int32_t value = 0;
        NorvaneBool done = kNorvaneFalse;
        status_ = system_->ReadParameter(0x1A2B, 0, aspi, 0xC4, parameter, 1, 0, value, done);
        return done == kNorvaneTrue ? value : -1;
    }

    bool Write(std::int16_t aspi, std::int32_t value, std::int16_t parameter = 0x10)
    {
        NorvaneBool done = kNorvaneFalse;
        status_ = system_->WriteParameter(0x1A2B, 0, aspi, 0xC4, parameter, value, 1, 0, done);
        return done == kNorvaneTrue;
    }

    bool Command(std::int32_t command)
    {
        NorvaneBool done = kNorvaneFalse;
        status_ = system_->CommandNode(0x1A2B, command, 0, zone_, done);
        return done == kNorvaneTrue;
    }

    bool Ping(std::int32_t node)
    {
        NorvaneBool answered = kNorvaneFalse;
        status_ = system_->PingNode(node, zone_, answered);
        return answered == kNorvaneTrue;
    }

    FakeFileSystem files_;
    FakeWait wait_;
    FakeErrorLog log_;
    std::optional<SimulatedNorvaneSystem> system_;
    ZoneHandle zone_ = kNoZone;
    NorvaneStatus status_ = kNorvaneOk;
};

TEST_F(SimulatedNorvaneTest, KeepsSavedValuesOverRestartsAndLosesTheOthers)
{
    Start(kNodes);
    EXPECT_TRUE(Write(0, 7) && Command(kCommandResetCache) && Write(0, 9) && Write(8, 9));
    EXPECT_EQ(Read(0), 9);
    EXPECT_TRUE(Command(kCommandRestoreCache));
    EXPECT_EQ(Read(0), 7);
    EXPECT_EQ(Read(8), 5);
    EXPECT_TRUE(Read(0, 0x11) == 0 && !Write(0, 1, 0x11)) << "read only";
    EXPECT_EQ(Read(1), -1) << "no such parameter";

    Write(0, 1);
    EXPECT_EQ(system_->RebootNode(0x1A2B, zone_), kNorvaneOk);
    EXPECT_EQ(Read(0), -1) << "still silent";
    EXPECT_FALSE(Ping(0x1A2B) || Ping(0x1A2B));
    EXPECT_TRUE(Ping(0x1A2B));
    EXPECT_EQ(Read(0), 7);

    Start(kNodes);
    EXPECT_EQ(Read(0), 7);
    files_.files["flash"] = "<ZorbusFlash>";
    Start(kNodes);
    EXPECT_EQ(Read(0), 5);
    EXPECT_EQ(log_.entries.size(), 1U) << "a spoilt flash file is told";
    EXPECT_FALSE(Command(kCommandResetCache));
    EXPECT_EQ(files_.files["flash"], "<ZorbusFlash>") << "and not replaced";
}

TEST_F(SimulatedNorvaneTest, FailsAsTheRulesSay)
{
    const std::pair<std::string, const char*> cases[] = {{"operation='ReadParameter'", "sssss"},
                                                         {"operation='ReadParameter' times='1' as='refused'", "-rrrr"},
                                                         {"operation='ReadParameter' after='1' times='2'", "rssrr"},
                                                         {"aspi='8' as='refused'", "rrrr-"},
                                                         {"node='2'", "rrrrr"},
                                                         {"operation='PingNode'", "rrrrr"},
                                                         {"parameter='10' base='C4' after='4'", "rrrrs"},
                                                         {"port='1' operation='OpenZone'", "-----"}};
    for (const auto& [rule, expected] : cases) {
        Start("<Fault " + rule + "/>" + kNodes);
        std::string outcome; // of four reads at ASPI 0 and one at 8: r(ead), s(tatus), - (refused)
        for (const std::int16_t aspi : std::initializer_list<std::int16_t>{0, 0, 0, 0, 8}) {
            const bool isRead = Read(aspi) >= 0;
            outcome += isRead ? 'r' : status_ < 0 ? 's' : '-';
        }
        EXPECT_EQ(outcome, expected) << rule;
    }
}

TEST_F(SimulatedNorvaneTest, TellsABadDescriptionAndHasNoPortsThen)
{
    std::string many = "<Port number='1'><Node id='1'><Processors aspi='";
    for (int k = 0; k < 32'000; ++k)
        many += "1 ";
    many += "'>";
    for (int k = 0; k < 7; ++k)
        many += "<Parameter base='1' id='1'/>";
    for (const std::string& elements :
         {std::string("<Port number='1'>"), std::string("<Port number='0'/>"), std::string("<Port number='x'/>"),
          std::string("<Port number='1'/><Port number='1'/>"), std::string("<Port number='1'><Node id='0'/></Port>"),
          std::string("<Port number='1' busy='yes'/>"), std::string("<Wait operation='CloseZone' milliseconds='1'/>"),
          std::string("<Port number='1'><Node id='1'><Slots>10000</Slots></Node></Port>"),
          many + "</Processors></Node></Port>"}) {
        log_.entries.clear();
        Start(elements);
        EXPECT_EQ(log_.entries.size(), 1U) << elements.substr(0, 100);
        EXPECT_EQ(zone_, kNoZone);
        EXPECT_EQ(status_, kNorvaneNotFound);
    }
}

TEST_F(SimulatedNorvaneTest, PlaysTheShippedScenes)
{
    PosixFileSystem disk;
    const SimulatedNorvaneSystem::Services services{&disk, &wait_, &log_};
    const auto scene = [&](const std::string& path) {
        return SimulatedNorvaneSystem(SimulatedNetworkFiles{path, true, {}, {}}, services);
    };
    const std::string folder = TARVEX_TEST_DATA "/network/";
    EXPECT_TRUE(scene(TARVEX_SHARE "/ZorbusNetwork.xml").MinimumVersion("1", "1", "11"));
    EXPECT_FALSE(scene(folder + "OldLibrary.xml").MinimumVersion("1", "1", "11"));
    EXPECT_EQ(scene(folder + "Faults.xml").Version(), "1.1.11");
    ExpectError([&] { scene(folder + "NoLibrary.xml"); }, kErrFileNotFound);
    EXPECT_TRUE(log_.entries.empty());
    scene(folder + "Malformed.xml");
    scene(folder + "Missing.xml");
    ASSERT_EQ(log_.entries.size(), 2U);
    EXPECT_NE(log_.entries[0].description.find("line 4, column 1"), std::string::npos) << log_.entries[0].description;
}

}
}

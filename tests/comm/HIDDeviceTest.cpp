#include "comm/HIDDevice.h"

#include "shell/PacketLog.h"
#include "support/ExpectError.h"
#include "support/FakeClock.h"
#include "support/FakeFileSystem.h"
#include "support/FakeHidServices.h"
#include "support/ScriptedPrompts.h"

#include <cstdlib>
#include <random>

namespace tarvex {
namespace {

class HIDDeviceTest : public testing::Test {
protected:
    HIDDeviceTest() { packetLog.OpenPacketLog("", 1); }

    /// The bytes delivered. Every transfer tells of at most one event; none is what it may do only for a short answer.
    Bytes Read(std::int32_t parameter, std::int16_t count = 1)
    {
        Bytes bytes = device.ReadFrom(0x451, parameter, count, kNoAspi);
        bytes.resize(static_cast<std::size_t>(count));
        return bytes;
    }
    void Write(std::int32_t parameter, const Bytes& bytes, std::int16_t aspi = kNoAspi)
    {
        device.WriteTo(0x451, parameter, bytes, static_cast<std::int16_t>(bytes.size()), aspi);
    }
    /// What happened since: the events by letter, or the lines of the log.
    std::string Events() { return std::exchange(events, {}); }
    std::string Log() { return std::exchange(files.files["1.txt"], {}); }

    FakeFileSystem files;
    FakeClock clock;
    PacketLog packetLog{files, clock};
    FakeHidServices services;
    FakeHidBoard& board = *services.boards[0];
    ScriptedPrompts prompts;
    HIDDevice hid{services, packetLog, prompts};
    IDevice& device = hid;
    std::string events;
    Subscription subscriptions[5] = {hid.ReadSuccess.Subscribe([&](int, int) { events += 'r'; }),
                                     hid.ReadFailure.Subscribe([&](int, int) { events += 'R'; }),
                                     hid.WriteSuccess.Subscribe([&](int, int) { events += 'w'; }),
                                     hid.WriteFailure.Subscribe([&](int, int) { events += 'W'; }),
                                     hid.ConnectSuccess.Subscribe([&](int) { events += 'c'; })};
    const std::string zeros = [] {
        std::string text;
        for (int i = 7; i < 64; ++i)
            text += "0 ";
        return text;
    }();
    const std::string request = "Packet Tx: 2 51 4 20 0 21 0 " + zeros + "  (Success with 6)  [" + clock.text + "]\n";
};

TEST_F(HIDDeviceTest, SendsPaddedReportsAndWritesThemDown)
{
    const std::string stamp = ")  [" + clock.text + "]\n";
    EXPECT_EQ(device.FirmwareVersion(), "unknown");
    EXPECT_EQ(device.connect(0xA100, 0x12C5), 1);
    EXPECT_EQ(device.FirmwareVersion() + device.productName() + device.DevicePath(), "v1.2Vexlon/dev/hidraw0");
    Write(0x20, {0x80});
    EXPECT_EQ(Read(0x20), Bytes{0x80});
    Bytes sent[] = {{1, 0x51, 4, 0x20, 0, 0x21, 0x80}, {2, 0x51, 4, 0x20, 0, 0x21}};
    for (Bytes& report : sent)
        report.resize(64);
    EXPECT_EQ(board.sent, (std::vector<Bytes>{sent[0], sent[1]}));
    EXPECT_EQ(Log(), "Packet Tx: 1 51 4 20 0 21 80 " + zeros + "  (Success with 64" + stamp +
                         "Packet Rx: 2 51 4 20 0 21 80 " + zeros + "  (Success with 64" + stamp);
    board.tamper = [](auto& reports) { reports.clear(); };
    EXPECT_EQ(Read(0x20), Bytes{});
    board.sendError = ETIMEDOUT;
    Write(0x20, {0x80});
    EXPECT_TRUE(hid.LastTransferTimedOut());
    EXPECT_EQ(Log(), "ERROR on Packet Rx: Rx Error. Could not read an Input Report 1. GetLastError code: 110\n"
                     "Packet Tx: 1 51 4 20 0 21 80 " +
                         zeros + "  (Success with 0" + stamp);
    EXPECT_EQ(Events(), "cwrRW");
}

TEST_F(HIDDeviceTest, ReadsPastForeignAnswersThreeTimes)
{
    device.connect(0xA100, 0x12C5);
    for (int foreign = 0; foreign <= 5; ++foreign) {
        board.memory[{0x51, 4, 0x20, 0}] = {0x5A};
        board.tamper = [&](auto& reports) {
            for (int i = 0; i < foreign; ++i)
                reports.push_front({2, 0x51, 4, 0x20, 1, 0x21, 0x77});
        };
        EXPECT_EQ(Read(0x20), foreign < 3 ? Bytes{0x5A} : Bytes{});
        std::string expected;
        for (int i = 1; i <= std::min(foreign, 3); ++i)
            expected += "ERROR on Packet Rx: Read address does not match requested address.\n" + request +
                        "Retrying Rx: try # " + std::to_string(i) + "\n";
        expected += foreign <= 3 ? "Packet Rx: 2 51 4 20 0 21 5A " : "Packet Rx: 2 51 4 20 1 21 77 ";
        EXPECT_EQ(Log(),
                  expected + zeros + "  (Success with " + (foreign <= 3 ? "64" : "7") + ")  [" + clock.text + "]\n");
    }
    EXPECT_EQ(Events(), "crrrRRR");
    EXPECT_EQ(board.exchangesUnderWay, 0);
}

TEST_F(HIDDeviceTest, RefusesWhatItCannotSend)
{
    ExpectError([&] { Write(1, {1}, 5); }, 303, "HIDDevice::WriteTo",
                "Cannot write packet to USB-HID Device because not connected.");
    ExpectError([&] { Read(1); }, 303, "HIDDevice::ReadFrom",
                "Cannot read packet from USB-HID Device because not connected.");
    board.lengths = {16, 12};
    device.connect(0xA100, 0x12C5);
    ExpectError([&] { Write(1, {1}, 5); }, 305, "HIDDevice::WriteTo", "ASPI is not expected parameter");
    const std::string text = "Attempt to write READ Request with too much data of ";
    ExpectError([&] { Write(1, Bytes(7)); }, 302, "HIDDevice::WriteTo", text + "13 bytes.  Max is 12");
    ExpectError([&] { Read(1, 7); }, 302, "HIDDevice::ReadFrom", text + "13 bytes.  Max is 12");
    ExpectError([&] { Read(1, 11); }, 302, "HIDDevice::ReadFrom", text + "17 bytes.  Max is 16");
    ExpectError([&] { Read(1, -1); }, kErrOverflow);
    EXPECT_TRUE(board.sent.empty());
    EXPECT_EQ(Read(1, 6), Bytes(6));
}

TEST_F(HIDDeviceTest, OpensOnlyBoardsOfTheWantedIds)
{
    services.boards.push_back(std::make_shared<FakeHidBoard>(board));
    services.boards[1]->known.path = "/dev/hidraw1";
    board.known.attributes.productId = 0xA200;
    services.boards[1]->openError = EACCES;
    EXPECT_EQ(device.connect(0xA100, 0x12C5), 0);
    EXPECT_EQ(services.opened, std::vector<std::string>{"/dev/hidraw1"});
    EXPECT_NE(hid.OpenRefusedHint().find("/dev/hidraw1. Install the rule file 70-tarvex.rules"), std::string::npos);
    EXPECT_EQ(device.ConnectToPath("/dev/hidraw0") + device.ProductID(), 1 + 0xA200);
    EXPECT_EQ(hid.OpenRefusedHint(), "");
    services.canEnumerate = false;
    ExpectError([&] { device.Browse(); }, 301, "HIDDevice::QueryForHID", "Could not attach to PnP node");
    services.canEnumerate = true;
    services.boards.clear();
    prompts.ExpectMessage("There were no HID devices discovered on this system", Answer::Ok);
    EXPECT_EQ(device.Browse(), "");
}

TEST_F(HIDDeviceTest, VerifyReconnectsToTheBoardItHad)
{
    const struct {
        int mute;
        const char* log;
        const char* events;
    } cases[] = {{0, "Communications verified after 1 tries\n", "rwrr"},
                 {3, "Communications verified after 3 tries\n", "RwRcwRcwrr"},
                 {9, "ERROR: Communication verification failed after 3 tries\n", "RwRcwRcwR"}};
    const std::string begin = "Verifying Communications on sigProc=451 and param=20\n";
    EXPECT_FALSE(device.VerifyCommunications(0x451, 0x20));
    EXPECT_EQ(Log(), begin);
    for (const auto& c : cases) {
        device.connect(0xA100, 0x12C5);
        Events();
        board.tamper = [mute = c.mute](auto& reports) mutable {
            if (mute-- > 0)
                reports.clear();
        };
        EXPECT_EQ(device.VerifyCommunications(0x451, 0x20), c.mute < 9);
        EXPECT_EQ(device.IsConnected(), c.mute < 9);
        const std::string log = Log();
        EXPECT_TRUE(log.starts_with(begin) && log.ends_with(c.log)) << log;
        EXPECT_EQ(Events(), c.events);
    }
}

/// What goes wrong with the reports that answer one request.
void Spoil(std::deque<Bytes>& reports, std::mt19937& random)
{
    const auto any = [&](std::size_t limit) { return random() % limit; };
    switch (any(6)) {
    case 0:
        reports.clear();
        break;
    case 1:
        reports.front().resize(any(65));
        break;
    case 2:
        reports.front()[5] = 0xFF;
        break;
    case 3: {
        Bytes foreign = reports.front();
        foreign[1 + any(4)] ^= 1;
        foreign[6] ^= 0x55;
        foreign.resize(1 + any(64));
        reports.insert(reports.begin(), any(5), foreign);
        break;
    }
    default:
        break;
    }
}

TEST_F(HIDDeviceTest, SurvivesRandomFaults)
{
    std::mt19937 random(1);
    board.tamper = [&](auto& reports) { Spoil(reports, random); };
    for (int sequence = std::getenv("TARVEX_LONG") ? 10'000 : 1'000; sequence > 0; --sequence) {
        for (int step = 0; step < 20; ++step) {
            board.plugged = random() % 16 != 0;
            board.sendError = random() % 8 == 0 ? EIO : 0;
            device.connect(0xA100, 0x12C5);
            if (!device.IsConnected())
                continue;
            const auto parameter = static_cast<std::int32_t>(random() % 4);
            const Bytes address = {0x51, 4, static_cast<std::uint8_t>(parameter), 0};
            const Bytes value = {static_cast<std::uint8_t>(random()), static_cast<std::uint8_t>(random())};
            Events();
            Write(parameter, value);
            EXPECT_EQ(Events(), board.plugged && board.sendError == 0 ? "w" : "W");
            board.sendError = random() % 8 == 0 ? EIO : 0;
            const Bytes read = Read(parameter, 2);
            const std::string told = Events();
            EXPECT_TRUE(told == (read.empty() ? "R" : "r") || (read.empty() && told.empty())) << told;
            EXPECT_TRUE(read.empty() || read == board.memory[address]);
            EXPECT_EQ(board.exchangesUnderWay, 0);
        }
        files.files.clear();
        ASSERT_FALSE(HasFailure());
    }
}

}
}

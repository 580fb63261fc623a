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
    HIDDeviceTest()
    {
        packetLog.OpenPacketLog("", 1);
        board.lengths = {10, 10};
    }

    /// The bytes delivered.
    Bytes Read(std::int32_t parameter, std::int16_t count = 1)
    {
        Bytes bytes = device.ReadFrom(0x451, parameter, count, kNoAspi);
        bytes.resize(static_cast<std::size_t>(count));
        return bytes;
    }
    void Write(std::int32_t parameter, const Bytes& bytes)
    {
        device.WriteTo(0x451, parameter, bytes, static_cast<std::int16_t>(bytes.size()), kNoAspi);
    }
    /// The packet line of a report of ten bytes that begins with these seven.
    std::string Line(const std::string& begin, const std::string& count) const
    {
        return "Packet " + begin + " 0 0 0   (Success with " + count + ")  [" + clock.text + "]\n";
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
};

TEST_F(HIDDeviceTest, SendsPaddedReportsAndWritesThemDown)
{
    EXPECT_EQ(device.FirmwareVersion(), "unknown");
    device.connect(0xA100, 0x12C5);
    EXPECT_EQ(device.FirmwareVersion() + device.productName() + device.DevicePath(), "v1.2Vexlon/dev/hidraw0");
    Write(0x20, {0x80});
    EXPECT_EQ(Read(0x20), Bytes{0x80});
    board.tamper = [](auto& reports) { reports.clear(); };
    EXPECT_EQ(Read(0x20), Bytes{});
    board.sendError = ETIMEDOUT;
    Write(0x20, {0x80});
    EXPECT_TRUE(hid.LastTransferTimedOut());
    EXPECT_EQ(Log(), Line("Tx: 1 51 4 20 0 21 80", "10") + Line("Rx: 2 51 4 20 0 21 80", "10") +
                         "ERROR on Packet Rx: Rx Error. Could not read an Input Report 1. GetLastError code: 110\n" +
                         Line("Tx: 1 51 4 20 0 21 80", "0"));
    EXPECT_EQ(Events(), "cwrRW");
    EXPECT_EQ(board.sent[1], (Bytes{2, 0x51, 4, 0x20, 0, 0x21, 0, 0, 0, 0}));
}

TEST_F(HIDDeviceTest, ReadsPastForeignAnswersThreeTimes)
{
    device.connect(0xA100, 0x12C5);
    Write(0x20, {0x5A});
    Log();
    for (int foreign = 0; foreign <= 4; ++foreign) {
        board.tamper = [&](auto& reports) {
            for (int i = 0; i < foreign; ++i)
                reports.push_front({2, 0x51, 4, 0x20, 1, 0x21, 0x77});
        };
        EXPECT_EQ(Read(0x20), foreign < 3 ? Bytes{0x5A} : Bytes{});
        std::string expected;
        for (int i = 1; i <= std::min(foreign, 3); ++i)
            expected += "ERROR on Packet Rx: Read address does not match requested address.\n" +
                        Line("Tx: 2 51 4 20 0 21 0", "6") + "Retrying Rx: try # " + std::to_string(i) + "\n";
        EXPECT_EQ(Log(),
                  expected + (foreign < 4 ? Line("Rx: 2 51 4 20 0 21 5A", "10") : Line("Rx: 2 51 4 20 1 21 77", "7")));
    }
    EXPECT_EQ(Events(), "cwrrrRR");
}

TEST_F(HIDDeviceTest, RefusesWhatItCannotSend)
{
    ExpectError([&] { device.WriteTo(1, 1, {1}, 1, 5); }, 303, "HIDDevice::WriteTo",
                "Cannot write packet to USB-HID Device because not connected.");
    board.lengths = {16, 12};
    device.connect(0xA100, 0x12C5);
    ExpectError([&] { device.WriteTo(1, 1, {1}, 1, 5); }, 305, "HIDDevice::WriteTo", "ASPI is not expected parameter");
    const std::string text = "Attempt to write READ Request with too much data of ";
    ExpectError([&] { Write(1, Bytes(7)); }, 302, "HIDDevice::WriteTo", text + "13 bytes.  Max is 12");
    ExpectError([&] { Read(1, 7); }, 302, "HIDDevice::ReadFrom", text + "13 bytes.  Max is 12");
    ExpectError([&] { Read(1, 11); }, 302, "HIDDevice::ReadFrom", text + "17 bytes.  Max is 16");
    EXPECT_TRUE(board.sent.empty());
    EXPECT_EQ(Read(1, 6), Bytes(6));
}

TEST_F(HIDDeviceTest, OpensOnlyBoardsOfTheWantedIds)
{
    services.boards.push_back(std::make_shared<FakeHidBoard>(board));
    services.boards[1]->known.path = "/dev/hidraw1";
    services.boards[1]->openError = EACCES;
    board.known.attributes.productId = 0xA200;
    EXPECT_EQ(device.connect(0xA100, 0x12C5), 0);
    EXPECT_EQ(services.opened, std::vector<std::string>{"/dev/hidraw1"});
    EXPECT_NE(hid.OpenRefusedHint().find("/dev/hidraw1. Install the rule file 70-tarvex.rules"), std::string::npos);
    EXPECT_EQ(device.ConnectToPath("/dev/hidraw0") + device.ProductID(), 1 + 0xA200);
    EXPECT_EQ(hid.OpenRefusedHint(), "");
    services.boards.clear();
    prompts.ExpectMessage("There were no HID devices discovered on this system");
    EXPECT_EQ(device.Browse(), "");
}

TEST_F(HIDDeviceTest, VerifyReconnectsToTheBoardItHad)
{
    const struct {
        int mute;
        const char *log, *events;
    } cases[] = {{0, "Communications verified after 1 tries\n", "crwrr"},
                 {3, "Communications verified after 3 tries\n", "RwRcwRcwrr"},
                 {9, "ERROR: Communication verification failed after 3 tries\n", "RwRcwRcwR"}};
    const std::string begin = "Verifying Communications on sigProc=451 and param=20\n";
    EXPECT_FALSE(device.VerifyCommunications(0x451, 0x20));
    EXPECT_EQ(Log(), begin);
    device.connect(0xA100, 0x12C5);
    for (const auto& c : cases) {
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

TEST_F(HIDDeviceTest, SurvivesRandomFaults)
{
    std::mt19937 random(1);
    const auto any = [&](std::size_t limit) { return random() % limit; };
    board.tamper = [&](auto& reports) {
        const std::size_t fault = any(6);
        Bytes& report = reports.front();
        Bytes foreign = report;
        foreign[1 + any(4)] ^= 1;
        foreign[6] ^= 0x55;
        if (fault == 1)
            report.resize(any(11));
        if (fault == 2)
            report[5] = any(2) == 0 ? 0xFF : 0x20; // more than there is, or nothing
        if (fault == 3)
            reports.insert(reports.begin(), any(5),
                           Bytes(foreign.begin(), foreign.begin() + 1 + static_cast<int>(any(9))));
        if (fault == 4)
            reports.clear();
    };
    for (int step = std::getenv("TARVEX_LONG") ? 100'000 : 10'000; step > 0 && !HasFailure(); --step) {
        if (step % 10 == 0) // the next sequence
            device.Disconnect();
        Log();
        board.sent.clear();
        board.plugged = any(16) != 0;
        board.sendError = any(8) == 0 ? EIO : 0;
        device.connect(0xA100, 0x12C5);
        if (!device.IsConnected())
            continue;
        const auto parameter = static_cast<std::uint8_t>(any(4));
        Events();
        Write(parameter, {static_cast<std::uint8_t>(random()), static_cast<std::uint8_t>(random())});
        EXPECT_EQ(Events(), board.plugged && board.sendError == 0 ? "w" : "W");
        board.sendError = any(8) == 0 ? EIO : 0;
        const Bytes read = Read(parameter, 2);
        const std::string told = Events();
        EXPECT_TRUE(told == (read.empty() ? "R" : "r") || (read.empty() && told.empty())) << told;
        EXPECT_TRUE(read.empty() || read == (board.memory[{0x51, 4, parameter, 0}]));
        EXPECT_EQ(board.exchangesUnderWay, 0);
    }
}

}
}

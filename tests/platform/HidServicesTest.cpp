#include "platform/hid/HidServices.h"
#include "support/FakeWait.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>

namespace tarvex {

namespace {

constexpr std::chrono::milliseconds kLimit{5000};

/// What describes one board: its node, its HID device, its interface and the device on the bus.
std::string Board(const std::string& n, const std::string& descriptor)
{
    const std::string bus = "P: /devices/pci0000:00/usb1/1-" + n;
    const std::string interface = bus + "/1-" + n + ":1.0";
    const std::string hid = interface + "/0003:12C5:000" + n + ".0001";
    return hid + "/hidraw/hidraw" + n + "\nN: hidraw" + n + "\nL: device=../../../0003:12C5:000" + n +
           ".0001\nE: DEVNAME=/dev/hidraw" + n + "\nE: SUBSYSTEM=hidraw\nA: dev=240:" + n + "\\n\n\n" + hid +
           "\nE: SUBSYSTEM=hid\nE: HID_ID=0003:000012C5:0000000" + n +
           "\nE: HID_NAME=x\nE: HID_UNIQ=1\nH: report_descriptor=" + descriptor + "\n\n" + interface +
           "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_interface\nA: bInterfaceNumber=00\\n\n\n" + bus +
           "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\nA: idVendor=12c5\\n\nA: idProduct=000" + n +
           "\\n\nA: bcdDevice=0102\\n\nA: product=Board " + n + "\\n\n\n";
}

/// Runs the body, and with it the whole test, in a process to which umockdev shows four boards: 0 has report ids,
/// 1 has none, 2 has no input reports and 3 no output reports. What they are to be sent, and what they answer, is
/// scripted ("^@" is 0).
void WithMockedBoards(IWait& wait, const std::function<void(HidServices&)>& body)
{
    HidServices services(wait);
    if (std::getenv("UMOCKDEV_DIR"))
        return body(services);
    if (std::system("command -v umockdev-run >/dev/null") != 0)
        GTEST_SKIP() << "umockdev-run is missing";
    const TemporaryFolder folder;
    const std::string boards = Board("0", "7508950485019102850291028102") + Board("1", "75089504810295089102") +
                               Board("2", "750895049102") + Board("3", "750895048102");
    std::string command = "ASAN_OPTIONS=verify_asan_link_order=0 umockdev-run -d " + folder.Write("boards", boards);
    const auto mock = [&](const std::string& node, const std::string& script) {
        const std::string size =
            folder.Write("size" + node.substr(11), "@DEV " + node + "\nHIDIOCGRDESCSIZE 0 0A000000\n");
        return " -i " + node + "=" + size + " -s " + node + "=" + folder.Write("script" + node.substr(11), script);
    };
    command += mock("/dev/hidraw0", "w 0 ^AX\nr 0 late\nw 0 ^BQ^D\nr 0 ^BQ\n");
    command += mock("/dev/hidraw1", "w 0 ^@AB\nr 0 QRST\n");
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    command += " -- /proc/" + std::to_string(getpid()) + "/exe --gtest_filter=HidServices." + test->name();
    EXPECT_EQ(std::system(command.c_str()), 0);
}

}

TEST(HidServices, FindsAndOpensBoardsAndRefusesWhatCannotBeUsed)
{
    FakeWait wait;
    WithMockedBoards(wait, [](HidServices& services) {
        const auto found = services.Enumerate();
        ASSERT_TRUE(found && found->size() == 4);
        for (const HidInterface& each : *found)
            EXPECT_EQ(each.productString, "Board " + each.path.substr(11)) << each.path;
        EXPECT_EQ(services.LastError(), 0);
        const std::pair<const char*, int> refused[] = {
            {"/dev/hidraw2", ENOTSUP}, {"/dev/hidraw3", ENOTSUP}, {"/dev/null", ENODEV}, {"/dev/hidraw4", ENOENT}};
        for (const auto& [path, error] : refused) {
            EXPECT_EQ(services.Open(path), nullptr) << path;
            EXPECT_EQ(services.LastError(), error) << path;
        }
        const auto board = services.Open("/dev/hidraw1");
        ASSERT_TRUE(board && board->Attributes());
        const auto [vendor, product, version] = *board->Attributes();
        EXPECT_TRUE(vendor == 0x12C5 && product == 1 && version == 0x0102)
            << vendor << " " << product << " " << version;
        const auto [input, output] = board->ReportLengths();
        EXPECT_TRUE(input == 5 && output == 9) << input << " " << output;
        EXPECT_TRUE(board->IsPresent());
        std::remove((std::string(std::getenv("UMOCKDEV_DIR")) + "/dev/hidraw1").c_str());
        EXPECT_FALSE(board->IsPresent());
    });
}

TEST(HidServices, DropsLateReportsTakesShortOnesAndKeepsOtherProgramsOffUntilTheEnd)
{
    FakeWait wait;
    WithMockedBoards(wait, [](HidServices& services) {
        const auto board = services.Open("/dev/hidraw0");
        ASSERT_TRUE(board);
        pollfd other{open("/dev/hidraw0", O_RDWR | O_CLOEXEC), POLLIN, 0};
        EXPECT_EQ(board->Write({1, 'X'}), 2U);
        ASSERT_EQ(poll(&other, 1, 5000), 1); // the late one is there
        const HidExchange exchange = board->Exchange({2, 'Q', 4}, 5, kLimit);
        EXPECT_EQ(exchange.written, 3U);
        EXPECT_EQ(exchange.answer, (Bytes{2, 'Q'}));
        EXPECT_EQ(board->LastError(), 0);
        EXPECT_NE(flock(other.fd, LOCK_EX | LOCK_NB), 0);
        EXPECT_TRUE(board->ReadNext(5, std::chrono::milliseconds(1)).empty());
        EXPECT_EQ(board->LastError(), ETIMEDOUT);
        board->EndExchange();
        EXPECT_EQ(flock(other.fd, LOCK_EX | LOCK_NB), 0);
        close(other.fd);
    });
}

TEST(HidServices, WaitsForAnotherProgramAndPutsAPlaceForTheIdWhereABoardHasNone)
{
    struct ReleasingWait : FakeWait {
        void Until(IPendingCall& call) override
        {
            if (other >= 0) {
                EXPECT_FALSE(call.WaitFor(std::chrono::milliseconds(20)));
                flock(other, LOCK_UN);
            }
            FakeWait::Until(call);
        }
        int other = -1;
    };
    ReleasingWait wait;
    WithMockedBoards(wait, [&wait](HidServices& services) {
        const auto board = services.Open("/dev/hidraw1");
        ASSERT_TRUE(board);
        wait.other = open("/dev/hidraw1", O_RDWR | O_CLOEXEC);
        ASSERT_EQ(flock(wait.other, LOCK_EX | LOCK_NB), 0);
        const HidExchange exchange = board->Exchange({2, 'A', 'B'}, 4, kLimit);
        EXPECT_EQ(exchange.written, 3U);
        EXPECT_EQ(exchange.answer, (Bytes{0, 'Q', 'R', 'S'}));
        close(wait.other);
    });
}

}

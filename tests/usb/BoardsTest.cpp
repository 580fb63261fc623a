#include "base/Error.h"
#include "usb/Computer.h"

#include <future>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex {

namespace {

/// Another program, started at once; Ended tells whether everything that it expected was so.
class Program {
public:
    template <class Run> explicit Program(const Run& run) : id_(fork())
    {
        if (id_ != 0)
            return;
        run();
        std::cout << std::flush;
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    bool Ended() const
    {
        int status = 1;
        waitpid(id_, &status, 0);
        return status == 0;
    }

private:
    const pid_t id_;
};

}

TEST(Boards, OfTwoProductsEachHasItsOwnLink)
{
    Board boards[] = {Board(), Board({.socket = 1, .productId = 0x0A52})};
    Computer computers[2];
    for (int i = 0; i < 2; ++i) {
        boards[i].Set(kScratch, {static_cast<std::uint8_t>(0x10 + i)});
        boards[i].Plug();
    }
    for (int i = 0; i < 2; ++i)
        computers[i].Connect(kVexlon + i);
    for (int round = 0; round < 20; ++round)
        for (int i = 0; i < 2; ++i)
            EXPECT_EQ(computers[i].Read(kScratch), 0x10 + i);
    boards[0].Unplug();
    EXPECT_FALSE(computers[0].Read(kScratch));
    EXPECT_EQ(computers[0].device.connect(kVexlon, kVendor), 0);
    EXPECT_EQ(computers[1].Read(kScratch), 0x11);
    EXPECT_EQ(computers[1].device.productName(), "Vexlon 1");
    EXPECT_EQ(boards[0].ReceivedCount(), 20u);
    EXPECT_EQ(boards[1].ReceivedCount(), 21u);
}

TEST(Boards, ServeTwoProgramsAtOnce)
{
    Board board;
    for (int i = 0; i < 128; ++i)
        board.Set({0x0451, static_cast<std::uint16_t>(i)}, {static_cast<std::uint8_t>(i + 1)});
    board.Plug();
    const auto readFrom = [](int first) {
        return [first] {
            Computer computer;
            computer.OpenLog();
            computer.Connect();
            int wrong = 0;
            for (int i = 0; i < 1000; ++i) {
                const int parameter = first + i % 64;
                const auto value = computer.Read({0x0451, static_cast<std::uint16_t>(parameter)});
                wrong += value && *value != parameter + 1 ? 1 : 0;
            }
            EXPECT_EQ(wrong + computer.failures, 0);
            EXPECT_EQ(computer.LogText().find("Retrying"), std::string::npos) << "an answer of the other was seen";
            std::cout << "1000 reads: " << wrong << " wrong, " << computer.failures << " failed\n";
        };
    };
    const Program one(readFrom(0));
    const Program other(readFrom(64));
    EXPECT_TRUE(one.Ended());
    EXPECT_TRUE(other.Ended());
    EXPECT_GE(board.ReceivedCount(), 2000u);
}

TEST(Boards, WithoutRightsAreRefusedWithAHintUntilTheRightsCome)
{
    Board board;
    board.Set(kScratch, {0x5A});
    board.Plug();
    chmod(board.Node().c_str(), 0600);
    const Program refused([] {
        ASSERT_EQ(setuid(65534), 0);
        Computer computer;
        EXPECT_EQ(computer.device.connect(kVexlon, kVendor), 0);
        EXPECT_NE(computer.device.OpenRefusedHint().find("70-tarvex.rules"), std::string::npos);
    });
    EXPECT_TRUE(refused.Ended());
    const Program late([] {
        ASSERT_EQ(setuid(65534), 0);
        Computer computer;
        computer.Connect();
        EXPECT_EQ(computer.Read(kScratch), 0x5A);
    });
    std::this_thread::sleep_for(milliseconds(100)); // the rule's rights come as late as that
    chmod(board.Node().c_str(), 0666);
    EXPECT_TRUE(late.Ended());
}

TEST(Boards, ComeAndGoWhileTheyAreListed)
{
    const int cycles = IsLongRun() ? 200 : 10;
    Board board;
    std::atomic<bool> ended = false;
    auto listing = std::async(std::launch::async, [&] {
        Computer computer;
        int seen = 0;
        int opened = 0;
        for (; !ended; std::this_thread::sleep_for(milliseconds(3))) {
            const auto present = computer.services.Enumerate();
            if (present && !present->empty()) {
                ++seen;
                EXPECT_EQ(present->front().attributes.productId, kVexlon);
            }
            opened += computer.device.connect(kVexlon, kVendor);
            computer.device.Disconnect();
        }
        std::cout << "came and went: listed " << seen << " times, opened " << opened << " times\n";
    });
    for (int i = 0; i < cycles; ++i) {
        board.Plug(i % 2 == 0);
        std::this_thread::sleep_for(milliseconds(i * 37 % 130)); // at another moment each time
        board.Unplug();
    }
    board.Plug();
    ended = true;
    listing.get();
    Computer computer;
    computer.Connect();
    EXPECT_EQ(computer.device.DevicePath(), board.Node());
}

}

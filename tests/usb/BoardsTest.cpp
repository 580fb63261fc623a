#include "base/Error.h"
#include "usb/Computer.h"

#include <fcntl.h>
#include <future>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex {

namespace {

/// Runs a program of its own; WaitForProgram tells whether everything that it expected was so.
template <class Program> pid_t StartProgram(const Program& program)
{
    const pid_t child = fork();
    if (child != 0)
        return child;
    program();
    std::cout << std::flush;
    _exit(testing::Test::HasFailure() ? 1 : 0);
}

bool WaitForProgram(pid_t child)
{
    int status = 1;
    waitpid(child, &status, 0);
    return status == 0;
}

void BecomeNobody()
{
    ASSERT_EQ(setgroups(0, nullptr), 0);
    ASSERT_EQ(setgid(65534), 0);
    ASSERT_EQ(setuid(65534), 0);
}

}

TEST(Boards, OfTwoProductsEachHasItsOwnLink)
{
    Board boards[] = {Board(), Board({.socket = 1, .productId = 0x0A52, .productName = "Kestra"})};
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
    EXPECT_EQ(computers[1].device.productName(), "Kestra");
    EXPECT_EQ(boards[0].TakeReceived().size(), 20u);
    EXPECT_EQ(boards[1].TakeReceived().size(), 21u);
}

TEST(Boards, ServeTwoProgramsAtOnce)
{
    Board board;
    for (int i = 0; i < 128; ++i)
        board.Set({0x0451, static_cast<std::uint16_t>(i)}, {static_cast<std::uint8_t>(i + 1)});
    board.Plug();
    pid_t programs[2];
    for (int number = 0; number < 2; ++number)
        programs[number] = StartProgram([number] {
            Computer computer;
            computer.Connect();
            int wrong = 0;
            const auto start = SteadyClock::now();
            for (int i = 0; i < 1000; ++i) {
                const int parameter = number * 64 + i % 64;
                const auto value = computer.Read({0x0451, static_cast<std::uint16_t>(parameter)});
                wrong += value && *value != parameter + 1 ? 1 : 0;
            }
            EXPECT_EQ(wrong + computer.failures, 0);
            std::cout << "program " << number << ": 1000 reads in " << Since(start).count() << " ms, " << wrong
                      << " wrong, " << computer.failures << " failed\n";
        });
    for (const pid_t program : programs)
        EXPECT_TRUE(WaitForProgram(program));
    EXPECT_GE(board.TakeReceived().size(), 2000u);
}

TEST(Boards, WithoutRightsAreRefusedWithAHintUntilTheRightsCome)
{
    Board board;
    board.Set(kScratch, {0x5A});
    board.Plug();
    ASSERT_EQ(chmod(board.Node().c_str(), 0600), 0);
    EXPECT_TRUE(WaitForProgram(StartProgram([] {
        BecomeNobody();
        Computer computer;
        const auto start = SteadyClock::now();
        EXPECT_EQ(computer.device.connect(kVexlon, kVendor), 0);
        EXPECT_NE(computer.device.OpenRefusedHint().find("70-tarvex.rules"), std::string::npos);
        std::cout << "no right to open: given up after " << Since(start).count() << " ms\n";
    })));
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t late = StartProgram([&] {
        BecomeNobody();
        Computer computer;
        EXPECT_EQ(write(ready[1], "", 1), 1);
        computer.Connect();
        EXPECT_EQ(computer.Read(kScratch), 0x5A);
    });
    char byte = 0;
    EXPECT_EQ(read(ready[0], &byte, 1), 1);
    std::this_thread::sleep_for(milliseconds(80)); // the rule's rights come as late as that
    chmod(board.Node().c_str(), 0666);
    EXPECT_TRUE(WaitForProgram(late));
    close(ready[0]);
    close(ready[1]);
}

TEST(Boards, OfOtherReportLengthsAreUsedOrRefused)
{
    const struct {
        bool ids;
        std::uint8_t output;
        std::uint8_t input;
        std::size_t wire; ///< bytes of a request as the board gets it, 0 = refused
    } rows[] = {{true, 20, 33, 21}, {true, 99, 120, 100}, {false, 64, 64, 64}, {true, 0, 63, 0}, {true, 63, 0, 0}};
    for (const auto& [ids, output, input, wire] : rows) {
        SCOPED_TRACE(testing::Message() << "ids " << ids << ", " << int{output} << " out, " << int{input} << " in");
        Board board({.reportIds = ids, .outputBytes = output, .inputBytes = input});
        board.Set(kScratch, {0x5A});
        board.Plug();
        Computer computer;
        ASSERT_EQ(computer.device.connect(kVexlon, kVendor), wire > 0 ? 1 : 0);
        if (wire == 0)
            continue;
        EXPECT_EQ(computer.Read(kScratch), 0x5A);
        EXPECT_EQ(board.TakeReceived().at(0).size(), wire);
        if (output < 36) {
            EXPECT_THROW(computer.device.WriteTo(0x0451, 0x20, Bytes(31), 31, kNoAspi), Error);
            EXPECT_TRUE(board.TakeReceived().empty());
        }
    }
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
        while (!ended) {
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

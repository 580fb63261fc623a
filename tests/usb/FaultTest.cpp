#include "base/Error.h"
#include "usb/Computer.h"

#include <atomic>
#include <future>
#include <random>

namespace tarvex {

namespace {

using Faults = ConnectedTest;

constexpr milliseconds kSoon{50};

int Occurrences(const std::string& text, const std::string& part)
{
    int count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

/// Unplugs the board when the moment comes, while the operation runs; how long the operation still went on.
template <class Operation, class Moment>
milliseconds UnplugDuring(Board& board, const Operation& operation, const Moment& moment)
{
    auto end = std::async(std::launch::async, [&] {
        operation();
        return SteadyClock::now();
    });
    EXPECT_TRUE(moment());
    EXPECT_EQ(end.wait_for(milliseconds(0)), std::future_status::timeout) << "ended before it was unplugged";
    const auto start = SteadyClock::now();
    board.Unplug();
    return std::chrono::duration_cast<milliseconds>(end.get() - start);
}

}

TEST_F(Faults, NoAnswerIsWaitedForASecond)
{
    computer.OpenLog();
    board.Break({.unanswered = 3});
    for (int i = 1; i <= 3; ++i) {
        const auto start = SteadyClock::now();
        EXPECT_FALSE(computer.Read(kScratch));
        const milliseconds took = Since(start);
        std::cout << "no answer: " << took.count() << " ms\n";
        EXPECT_GE(took, milliseconds(1000));
        EXPECT_LE(took, milliseconds(1100));
        EXPECT_EQ(computer.failedReads, i);
    }
    EXPECT_EQ(Occurrences(computer.LogText(),
                          "ERROR on Packet Rx: Rx Error. Could not read an Input Report 1. GetLastError code: 110"),
              3)
        << computer.LogText();
    ExpectWorks();
}

TEST_F(Faults, UnpluggedIsNoticedAtOnceAndPluggedInAgainWorks)
{
    std::atomic<int> transfers = 0;
    const auto writeOn = [&] {
        while (computer.failedWrites == 0) {
            computer.Write(kScratch, 1);
            ++transfers;
        }
    };
    const auto isStuck = [&] {
        for (int before = -1; before != transfers;) {
            before = transfers;
            std::this_thread::sleep_for(milliseconds(200)); // many times a write that is taken
        }
        return true;
    };
    const struct {
        const char* what;
        BoardFaults faults;
        std::function<void()> operation;
        std::function<bool()> moment;
    } cases[] = {
        {"a read",
         {.unanswered = 1},
         [&] { EXPECT_FALSE(computer.Read(kScratch)); },
         [&] { return board.WaitForReport(); }},
        {"writes", {}, writeOn, [&] { return WaitUntil([&] { return transfers > 50; }); }},
        {"a stuck write", {.takesNothing = true}, writeOn, isStuck},
    };
    for (const auto& [what, faults, operation, moment] : cases) {
        board.TakeReceived();
        transfers = computer.failedReads = computer.failedWrites = 0;
        board.Break(faults);
        const milliseconds took = UnplugDuring(board, operation, moment);
        std::cout << "unplugged during " << what << ": failed after " << took.count() << " ms\n";
        EXPECT_LE(took, kSoon);
        EXPECT_EQ(computer.failedReads + computer.failedWrites, 1);
        const auto start = SteadyClock::now();
        EXPECT_FALSE(computer.Read(kScratch));
        EXPECT_LE(Since(start), kSoon);
        EXPECT_EQ(computer.device.DevicePath(), "");
        board.Plug();
        computer.Connect();
        ExpectWorks();
    }
}

TEST_F(Faults, UnpluggedWhileIdleIsFoundAgainByTheTestOfTheLink)
{
    board.Unplug();
    const auto start = SteadyClock::now();
    EXPECT_FALSE(computer.Read(kScratch));
    computer.Write(kScratch, 1);
    EXPECT_LE(Since(start), kSoon);
    EXPECT_EQ(computer.failedReads, 1);
    EXPECT_EQ(computer.failedWrites, 1);
    board.Plug();
    EXPECT_TRUE(computer.device.VerifyCommunications(kScratch.first, kScratch.second));
    EXPECT_EQ(board.Get(kScratch), Bytes{0x80});
}

TEST_F(Faults, StuckWriteEndsWithAFailureAndLeavesTheBoardUsable)
{
    board.Break({.takesNothing = true});
    milliseconds took{};
    while (computer.failedWrites == 0) {
        const auto start = SteadyClock::now();
        computer.Write(kScratch, 1);
        took = Since(start);
    }
    std::cout << "stuck write: failed after " << took.count() << " ms\n";
    EXPECT_GE(took, milliseconds(4500));
    EXPECT_LE(took, milliseconds(6000));
    ExpectWorks();
}

TEST_F(Faults, LateAnswerIsNotTakenForTheNext)
{
    const RegisterAddress other{0x0451, 0x0021};
    board.Set(other, {0x77});
    for (const RegisterAddress& next : {kScratch, other}) {
        board.Break({.holdAnswer = true});
        EXPECT_FALSE(computer.Read(kScratch));
        board.Set(kScratch, {0x66});
        board.ReleaseAnswer();
        EXPECT_EQ(computer.Read(next), board.Get(next)[0]);
    }
}

TEST_F(Faults, WrongAddressesAreReadPastThreeTimes)
{
    for (int wrong = 1; wrong <= 4; ++wrong) {
        Computer fresh;
        fresh.OpenLog();
        fresh.Connect();
        board.Break({.wrongAnswers = wrong});
        EXPECT_EQ(fresh.Read(kScratch).has_value(), wrong < 3) << wrong;
        EXPECT_EQ(fresh.failedReads, wrong < 3 ? 0 : 1);
        EXPECT_EQ(Occurrences(fresh.LogText(), "\nERROR on Packet Rx: Read address does not match requested address."),
                  std::min(wrong, 3));
        EXPECT_EQ(Occurrences(fresh.LogText(), "\nRetrying Rx: try # "), std::min(wrong, 3));
        EXPECT_EQ(fresh.Read(kScratch), 0x5A) << "after " << wrong;
    }
}

TEST_F(Faults, LengthByteBeyondTheReportIsNotFollowed)
{
    board.Break({.lengthByte = 0xFF});
    std::int16_t count = 1;
    try {
        computer.device.ReadFrom(kScratch.first, kScratch.second, count, kNoAspi);
        EXPECT_LE(count, 58);
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 703) << error.Description();
    }
    ExpectWorks();
}

TEST_F(Faults, RegisterThatCannotBeWrittenFailsTheTestOfTheLink)
{
    computer.OpenLog();
    board.Set(kScratch, {0});
    board.Break({.readOnly = {kScratch}});
    EXPECT_FALSE(computer.device.VerifyCommunications(kScratch.first, kScratch.second));
    EXPECT_EQ(Occurrences(computer.LogText(), "\nERROR: Communication verification failed after 3 tries"), 1);
    EXPECT_FALSE(computer.device.IsConnected());
    board.Break({});
    computer.Connect();
    EXPECT_TRUE(computer.device.VerifyCommunications(kScratch.first, kScratch.second));
}

/// A sequence of transfers at which faults come and go; whatever happens, a value that is delivered is the right one.
class RandomFaults : public ConnectedTest {
protected:
    void Step(std::mt19937& random)
    {
        BoardFaults faults;
        switch (random() % 12) {
        case 0:
            faults.unanswered = 1;
            break;
        case 1:
            faults.holdAnswer = true;
            break;
        case 2:
            faults.wrongAnswers = 1 + static_cast<int>(random() % 5);
            break;
        case 3:
            faults.lengthByte = static_cast<int>(random() % 256);
            break;
        case 4:
            faults.readOnly = {kScratch};
            break;
        case 5:
            return Replug(random() % 2 == 0);
        default:
            break;
        }
        const bool released = faults.holdAnswer;
        board.Break(faults);
        computer.Write(kScratch, static_cast<std::uint8_t>(random()));
        CheckedRead();
        if (released)
            board.ReleaseAnswer();
    }

    void Replug(bool reads)
    {
        board.Break({.unanswered = 1});
        board.TakeReceived();
        if (reads)
            UnplugDuring(
                board, [this] { computer.Read(kScratch); }, [this] { return board.WaitForReport(); });
        else
            board.Unplug();
        CheckedRead();
        board.Plug();
        computer.Connect();
    }

    void CheckedRead()
    {
        try {
            if (const auto value = computer.Read(kScratch)) {
                EXPECT_EQ(Bytes{*value}, board.Get(kScratch));
            }
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), 703) << error.Description();
        }
    }
};

TEST_F(RandomFaults, NeverPassAWrongValueOff)
{
    const unsigned sequences = IsLongRun() ? 200 : 10;
    for (unsigned sequence = 0; sequence < sequences && !HasFailure(); ++sequence) {
        SCOPED_TRACE("sequence " + std::to_string(sequence));
        std::mt19937 random(sequence);
        for (int step = 0; step < 10; ++step)
            Step(random);
        ExpectWorks();
    }
    std::cout << sequences << " sequences\n";
}

}

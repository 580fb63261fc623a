#include "base/Error.h"
#include "usb/Computer.h"

#include <future>
#include <random>

namespace tarvex {

static constexpr milliseconds kSoon{50};

class Faults : public ConnectedTest {
protected:
    /// Unplugs the board when the moment comes, while the operation runs; how long the operation still went on.
    template <class Operation, class Moment> milliseconds UnplugDuring(const Operation& operation, const Moment& moment)
    {
        auto end = std::async(std::launch::async, [&] {
            operation();
            return SteadyClock::now();
        });
        EXPECT_TRUE(WaitUntil(moment));
        const auto start = SteadyClock::now();
        board.Unplug();
        return std::chrono::duration_cast<milliseconds>(end.get() - start);
    }

    /// One write and read, with a fault or without; a value that is delivered is the right one.
    void RandomStep(std::mt19937& random)
    {
        BoardFaults faults;
        const auto kind = random() % 12;
        faults.unanswered = kind == 0 ? 1 : 0;
        faults.holdAnswer = kind == 1;
        faults.wrongAnswers = kind == 2 ? 1 + static_cast<int>(random() % 3) : 0;
        faults.lengthByte = kind == 3 ? static_cast<int>(random() % 256) : -1;
        if (kind == 4)
            faults.readOnly = {kScratch};
        board.Break(faults);
        computer.Write(kScratch, static_cast<std::uint8_t>(random()));
        const auto read = [this] {
            if (const auto value = computer.Read(kScratch)) {
                EXPECT_EQ(Bytes{*value}, board.Get(kScratch));
            }
        };
        if (kind == 5) {
            const std::size_t before = board.ReceivedCount();
            const auto more = random() % 2;
            UnplugDuring(read, [&] { return board.ReceivedCount() >= before + more; });
            board.Plug();
            computer.Connect();
        } else {
            read();
        }
        if (faults.holdAnswer)
            board.ReleaseAnswer();
    }
};

TEST_F(Faults, NoAnswerIsWaitedForASecond)
{
    computer.OpenLog();
    board.Break({.unanswered = 1});
    const auto start = SteadyClock::now();
    EXPECT_FALSE(computer.Read(kScratch));
    const milliseconds took = Since(start);
    std::cout << "no answer: given up after " << took.count() << " ms\n";
    EXPECT_GE(took, milliseconds(1000));
    EXPECT_LE(took, milliseconds(1100));
    EXPECT_EQ(computer.failures, 1);
    EXPECT_EQ(computer.LogText(),
              "ERROR on Packet Rx: Rx Error. Could not read an Input Report 1. GetLastError code: 110\n");
    ExpectWorks();
}

TEST_F(Faults, UnpluggedIsNoticedAtOnceAndPluggedInAgainWorks)
{
    std::atomic<int> transfers = 0;
    const auto writeOn = [&] {
        for (; computer.failures == 0; ++transfers)
            computer.Write(kScratch, 1);
    };
    const std::tuple<const char*, BoardFaults, std::function<void()>, std::function<bool()>> cases[] = {
        {"a read", {.unanswered = 1}, [&] { computer.Read(kScratch); }, [&] { return board.ReceivedCount() == 1; }},
        {"writes", {}, writeOn, [&] { return transfers > 50; }},
        {"a stuck write",
         {.takesNothing = true},
         writeOn,
         [&, before = -1]() mutable {
             std::this_thread::sleep_for(milliseconds(200)); // many times a write that is taken
             return std::exchange(before, transfers) == transfers;
         }},
    };
    for (const auto& [what, faults, operation, moment] : cases) {
        board.TakeReceived();
        transfers = computer.failures = 0;
        board.Break(faults);
        const milliseconds took = UnplugDuring(operation, moment);
        std::cout << "unplugged during " << what << ": failed after " << took.count() << " ms\n";
        EXPECT_LE(took, kSoon);
        EXPECT_EQ(computer.failures, 1);
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
    EXPECT_EQ(computer.failures, 2);
    board.Plug();
    EXPECT_TRUE(computer.device.VerifyCommunications(kScratch.first, kScratch.second));
    EXPECT_EQ(board.Get(kScratch), Bytes{0x80});
}

TEST_F(Faults, StuckWriteFailsAndLeavesTheBoardUsable)
{
    board.Break({.takesNothing = true});
    milliseconds took{};
    while (computer.failures == 0) {
        const auto start = SteadyClock::now();
        computer.Write(kScratch, 1);
        took = Since(start);
    }
    std::cout << "stuck write: failed after " << took.count() << " ms\n";
    EXPECT_LE(took, milliseconds(6000));
    EXPECT_TRUE(computer.device.LastTransferTimedOut());
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

TEST_F(Faults, WrongAddressesAreReadPast)
{
    for (int wrong = 1; wrong <= 4; ++wrong) {
        board.Break({.wrongAnswers = wrong});
        EXPECT_EQ(computer.Read(kScratch).has_value(), wrong < 3) << wrong;
        EXPECT_EQ(computer.Read(kScratch), 0x5A) << "after " << wrong;
    }
}

TEST_F(Faults, RegisterThatCannotBeWrittenFailsTheTestOfTheLink)
{
    board.Set(kScratch, {0});
    board.Break({.readOnly = {kScratch}});
    EXPECT_FALSE(computer.device.VerifyCommunications(kScratch.first, kScratch.second));
    EXPECT_FALSE(computer.device.IsConnected());
    computer.Connect();
    board.Break({});
    EXPECT_TRUE(computer.device.VerifyCommunications(kScratch.first, kScratch.second));
}

TEST_F(Faults, InRandomSequencesNeverPassAWrongValueOff)
{
    const unsigned sequences = IsLongRun() ? 200 : 10;
    for (unsigned sequence = 0; sequence < sequences && !HasFailure(); ++sequence) {
        SCOPED_TRACE("sequence " + std::to_string(sequence));
        std::mt19937 random(sequence);
        for (int step = 0; step < 6; ++step)
            RandomStep(random);
        ExpectWorks();
    }
    std::cout << sequences << " sequences, " << board.ReceivedCount() << " reports, " << computer.failures
              << " failures\n";
}

}

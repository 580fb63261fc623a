#include "benchmarks/Report.h"
#include "usb/Computer.h"

#include <hidapi.h>
#include <random>
#include <regex>

namespace tarvex {

namespace {

using Transfers = ConnectedTest;

Bytes Report(Bytes start)
{
    start.resize(64);
    return start;
}

long OpenFiles() { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); }

}

TEST_F(Transfers, HaveTheirBytesOnTheWireAndInTheLog)
{
    computer.OpenLog();
    EXPECT_EQ(computer.Read(kScratch), 0x5A);
    computer.Write(kScratch, 0x80);
    EXPECT_EQ(computer.Read(kScratch), 0x80);
    const Bytes read = Report({2, 0x51, 4, 0x20, 0, 0x21, 0});
    EXPECT_EQ(board.TakeReceived(), (std::vector<Bytes>{read, Report({1, 0x51, 4, 0x20, 0, 0x21, 0x80}), read}));
    std::string log;
    for (const char* start : {"Rx: 2 51 4 20 0 21 5A", "Tx: 1 51 4 20 0 21 80", "Rx: 2 51 4 20 0 21 80"})
        log += "Packet " + std::string(start) + "( 0){57}   \\(Success with 64\\)  \\[[-0-9]+ [:0-9]+\\]\n";
    EXPECT_TRUE(std::regex_match(computer.LogText(), std::regex(log))) << computer.LogText();
    EXPECT_EQ(computer.device.FirmwareVersion(), "v1.2");
    EXPECT_EQ(computer.device.productName(), "Vexlon 0");
    EXPECT_EQ(computer.device.DevicePath(), board.Node());
}

TEST_F(Transfers, ReadBackWhatTheyWrote)
{
    const int pairs = IsLongRun() ? 100000 : 2000;
    const long filesBefore = OpenFiles();
    std::mt19937 random(1);
    for (int i = 1; i <= pairs; ++i) {
        const std::int32_t processor = random() % 0x10000;
        const std::int32_t parameter = random() % 0x10000;
        Bytes value(1 + random() % 31);
        for (std::uint8_t& byte : value)
            byte = static_cast<std::uint8_t>(random());
        auto count = static_cast<std::int16_t>(value.size());
        computer.device.WriteTo(processor, parameter, value, count, kNoAspi);
        Bytes back = computer.device.ReadFrom(processor, parameter, count, kNoAspi);
        back.resize(static_cast<std::size_t>(count));
        ASSERT_EQ(back, value) << "pair " << i;
        if (i % 500 == 0) {
            computer.device.Disconnect();
            computer.Connect();
        }
    }
    EXPECT_EQ(OpenFiles(), filesBefore);
    EXPECT_EQ(computer.failures, 0);
    std::cout << pairs << " pairs read back\n";
}

TEST_F(Transfers, CostLittleMoreThanTheBareHidCalls)
{
    using Time = std::chrono::duration<double, std::micro>;
    constexpr int kReads = 100;
    const std::unique_ptr<hid_device, void (*)(hid_device*)> bare(hid_open(0x12C5, 0x0A51, nullptr), hid_close);
    ASSERT_TRUE(bare);
    const Bytes request = Report({2, 0x51, 4, 0x20, 0, 0x21, 0});
    Bytes answer(64);
    const auto timeOf = [&](const auto& read) {
        while (hid_read_timeout(bare.get(), answer.data(), answer.size(), 0) > 0) // every handle gets every answer
            ;
        const auto start = SteadyClock::now();
        for (int i = 0; i < kReads; ++i)
            read();
        return Time(SteadyClock::now() - start).count() / kReads;
    };
    const auto readBare = [&] {
        ASSERT_EQ(hid_write(bare.get(), request.data(), request.size()), 64);
        ASSERT_EQ(hid_read_timeout(bare.get(), answer.data(), answer.size(), 1000), 64);
    };
    const auto readByLink = [&] { ASSERT_EQ(computer.Read(kScratch), 0x5A); };
    std::vector<double> bareTimes;
    std::vector<double> linkTimes;
    for (int round = 0; round < bench::kRounds; ++round) {
        bareTimes.push_back(timeOf(readBare));
        linkTimes.push_back(timeOf(readByLink));
    }
    EXPECT_TRUE(bench::Report("reading registers over USB / a bare loop of the same reports",
                              bench::Ratios(linkTimes, bareTimes), 1.2, "times"));
}

}

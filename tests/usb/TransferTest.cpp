#include "usb/Computer.h"

#include <filesystem>
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

std::string ZeroBytes(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "0 ";
    return text;
}

}

TEST_F(Transfers, HaveTheirBytesOnTheWireAndInTheLog)
{
    computer.OpenLog();
    EXPECT_EQ(computer.Read(kScratch), 0x5A);
    computer.Write(kScratch, 0x80);
    EXPECT_EQ(computer.Read(kScratch), 0x80);
    const Bytes read = Report({2, 0x51, 4, 0x20, 0, 0x21, 0});
    EXPECT_EQ(board.TakeReceived(), (std::vector<Bytes>{read, Report({1, 0x51, 4, 0x20, 0, 0x21, 0x80}), read}));
    EXPECT_EQ(board.Get(kScratch), Bytes{0x80});
    const auto line = [](const std::string& direction, const std::string& start) {
        return "Packet " + direction + "x: " + start + ZeroBytes(57) +
               "  \\(Success with 64\\)  \\[[-0-9]+ [:0-9]+\\]\n";
    };
    const std::string request = line("T", "2 51 4 20 0 21 0 ");
    EXPECT_TRUE(std::regex_match(computer.LogText(), std::regex(request + line("R", "2 51 4 20 0 21 5A ") +
                                                                line("T", "1 51 4 20 0 21 80 ") + request +
                                                                line("R", "2 51 4 20 0 21 80 "))))
        << computer.LogText();
    EXPECT_EQ(computer.device.FirmwareVersion(), "v1.2");
    EXPECT_EQ(computer.device.productName(), "Vexlon");
    EXPECT_EQ(computer.device.DevicePath(), board.Node());
}

TEST_F(Transfers, ReadBackWhatTheyWrote)
{
    const int pairs = IsLongRun() ? 100000 : 2000;
    std::mt19937 random(pairs);
    long filesBefore = 0;
    for (int i = 0; i < pairs; ++i) {
        const RegisterAddress address{random() % 0x10000, random() % 0x10000};
        Bytes value(1 + random() % 31);
        for (std::uint8_t& byte : value)
            byte = static_cast<std::uint8_t>(random());
        auto count = static_cast<std::int16_t>(value.size());
        computer.device.WriteTo(address.first, address.second, value, count, kNoAspi);
        Bytes back = computer.device.ReadFrom(address.first, address.second, count, kNoAspi);
        back.resize(static_cast<std::size_t>(count));
        ASSERT_EQ(back, value) << "pair " << i;
        if (i == 0)
            filesBefore = OpenFiles();
        if (i % 500 == 0) {
            computer.device.Disconnect();
            computer.Connect();
            board.TakeReceived();
        }
    }
    EXPECT_EQ(OpenFiles(), filesBefore);
    EXPECT_EQ(computer.failedReads + computer.failedWrites, 0);
    std::cout << pairs << " pairs read back\n";
}

TEST_F(Transfers, CostLittleMoreThanTheBareHidCalls)
{
    constexpr int kBlocks = 20;
    constexpr int kReads = 100;
    hid_device* bare = hid_open(0x12C5, 0x0A51, nullptr);
    ASSERT_NE(bare, nullptr);
    const Bytes request = Report({2, 0x51, 4, 0x20, 0, 0x21, 0});
    Bytes answer(64);
    const auto readBare = [&] {
        ASSERT_EQ(hid_write(bare, request.data(), request.size()), 64);
        ASSERT_EQ(hid_read_timeout(bare, answer.data(), answer.size(), 1000), 64);
    };
    const auto readByLink = [&] { ASSERT_EQ(computer.Read(kScratch), 0x5A); };
    const auto timeOf = [&](const auto& read) {
        const auto start = SteadyClock::now();
        for (int i = 0; i < kReads; ++i)
            read();
        return std::chrono::duration<double, std::micro>(SteadyClock::now() - start).count() / kReads;
    };
    const auto medians = [&] {
        std::vector<double> bareTimes;
        std::vector<double> linkTimes;
        for (int block = 0; block < kBlocks; ++block) {
            while (hid_read_timeout(bare, answer.data(), answer.size(), 0) > 0) // every answer goes to every handle
                ;
            bareTimes.push_back(timeOf(readBare));
            linkTimes.push_back(timeOf(readByLink));
        }
        std::nth_element(bareTimes.begin(), bareTimes.begin() + kBlocks / 2, bareTimes.end());
        std::nth_element(linkTimes.begin(), linkTimes.begin() + kBlocks / 2, linkTimes.end());
        return std::pair(bareTimes[kBlocks / 2], linkTimes[kBlocks / 2]);
    };
    for (const char* log : {"closed", "open"}) {
        const auto [bareTime, linkTime] = medians();
        std::cout << "a read with the log " << log << ": bare " << bareTime << " us, by the link " << linkTime
                  << " us, ratio " << linkTime / bareTime << "\n";
        EXPECT_LE(linkTime, 1.2 * bareTime);
        computer.OpenLog();
    }
    hid_close(bare);
}

}

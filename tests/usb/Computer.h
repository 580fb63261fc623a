#pragma once

#include "comm/HIDDevice.h"
#include "platform/SystemClock.h"
#include "platform/files/PosixFileSystem.h"
#include "platform/hid/HidServices.h"
#include "shell/PacketLog.h"
#include "support/FakeWait.h"
#include "support/ScriptedPrompts.h"
#include "support/TemporaryFolder.h"
#include "usb/Board.h"

namespace tarvex {

using SteadyClock = std::chrono::steady_clock;
using std::chrono::milliseconds;

inline constexpr std::int32_t kVendor = 0x12C5;
inline constexpr std::int32_t kVexlon = 0x0A51;
inline constexpr RegisterAddress kScratch{0x0451, 0x0020};

inline bool IsLongRun() { return *std::getenv("TARVEX_LONG") != 0; }

inline milliseconds Since(SteadyClock::time_point start)
{
    return std::chrono::duration_cast<milliseconds>(SteadyClock::now() - start);
}

/// One program's link to boards, with everything real below it.
class Computer {
public:
    void Connect(std::int32_t productId = kVexlon) { ASSERT_EQ(device.connect(productId, kVendor), 1); }
    void OpenLog() { log.OpenPacketLog(folder.File("log"), 1); }
    std::string LogText() const { return folder.Read("log1.txt"); }

    void Write(RegisterAddress address, std::uint8_t value)
    {
        device.WriteTo(address.first, address.second, {value}, 1, kNoAspi);
    }

    /// The byte read; none when the read failed.
    std::optional<std::uint8_t> Read(RegisterAddress address)
    {
        std::int16_t count = 1;
        const Bytes value = device.ReadFrom(address.first, address.second, count, kNoAspi);
        return count > 0 ? std::optional(value.at(0)) : std::nullopt;
    }

    FakeWait wait;
    HidServices services{wait};
    PosixFileSystem files;
    SystemClock clock;
    TemporaryFolder folder;
    PacketLog log{files, clock};
    ScriptedPrompts prompts;
    HIDDevice device{services, log, prompts};
    int failures = 0;

private:
    Subscription readFailure_ = device.ReadFailure.Subscribe([this](auto...) { ++failures; });
    Subscription writeFailure_ = device.WriteFailure.Subscribe([this](auto...) { ++failures; });
};

/// A board that is plugged in, and a computer connected to it.
class ConnectedTest : public testing::Test {
protected:
    void SetUp() override
    {
        board.Set(kScratch, {0x5A});
        board.Plug();
        computer.Connect();
    }

    /// What is written is read back.
    void ExpectWorks()
    {
        board.Break({});
        computer.Write(kScratch, ++lastWritten_);
        EXPECT_EQ(computer.Read(kScratch), lastWritten_);
    }

    Board board;
    Computer computer;

private:
    std::uint8_t lastWritten_ = 0x80;
};

}

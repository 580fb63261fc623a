#include "shell/ErrorLog.h"
#include "shell/PacketLog.h"

#include "base/Error.h"
#include "base/ExitRequest.h"
#include "support/FakeClock.h"
#include "support/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tarvex {

namespace {

template <class Failure> void LogThrown(ErrorLog& log, const Failure& failure)
{
    try {
        throw failure;
    } catch (...) {
        log.LogCurrentError();
    }
}

}

TEST(ErrorLog, AppendsWhateverIsBeingHandled)
{
    FakeFileSystem files;
    ErrorLog(files, "log").LogError("It failed", ObjectError(1), "RegisterObject::ReadValue");
    ErrorLog log(files, "log");
    LogThrown(log, Error(403, "TarvexData::OpenXMLFile", "Failed to open x"));
    LogThrown(log, std::runtime_error("foreign"));
    LogThrown(log, 5);
    LogThrown(log, ExitRequest{0});
    log.LogCurrentError();
    EXPECT_EQ(files.files["log"], "\n-2147221503 raised from RegisterObject::ReadValue\nIt failed\n"
                                  "\n403 raised from TarvexData::OpenXMLFile\nFailed to open x\n"
                                  "\n0 raised from Tarvex\nforeign\n\n0 raised from Tarvex\nUnknown error\n");
}

TEST(PacketLog, WritesEachKindOfLineAndContinuesAnExistingFile)
{
    FakeFileSystem files;
    FakeClock clock;
    clock.text = "NOW";
    PacketLog log(files, clock);
    files.files["/root/P_42.txt"] = "old\n";
    log.OpenPacketLog("/root/P_", 42);
    log.LogHeader("Demo device", 0xA51, 0x12C5);
    log.LogPacket(PacketDirection::Sent, {0x05, 0xA0}, 2, 1);
    log.LogPacket(PacketDirection::Received, {0x00, 0xFF, 0x10}, 2, 3);
    log.LogPacket(PacketDirection::Received, {0x01}, 9, 2);
    log.LogPacketError(PacketDirection::Sent, "no answer");
    log.LogPacketError(PacketDirection::Received, "gone");
    log.LogText("free  text");
    log.Close();
    EXPECT_EQ(files.files["/root/P_42.txt"],
              "old\nBeginning packet log for Demo device, PID: 0xA51, VID: 0x12C5 [NOW]\n"
              "Packet Tx: 5 A0   (Success with 1)  [NOW]\nPacket Rx: 0 FF   (Success with 3)  [NOW]\n"
              "Packet Rx: 1   (Success with 2)  [NOW]\nERROR on Packet Tx: no answer\nERROR on Packet Rx: gone\n"
              "free  text\n");
}

TEST(Logs, LeaveTheProgramAloneWhenTheyCannotBeWritten)
{
    FakeFileSystem files;
    FakeClock clock;
    files.failing = {FileOperation::OpenText};
    ErrorLog(files, "log").LogError("text", 1, "source");
    PacketLog log(files, clock);
    log.OpenPacketLog("p", 1);
    EXPECT_FALSE(log.IsPacketLogging());
    log.LogPacket(PacketDirection::Sent, {1}, 1, 1);
    EXPECT_TRUE(files.files.empty());
}

}

#include "base/Error.h"
#include "platform/files/PosixFileSystem.h"
#include "shell/ErrorLog.h"
#include "shell/PacketLog.h"
#include "shell/WorkingCopies.h"
#include "support/FakeClock.h"
#include "support/FakeFileSystem.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace tarvex {
namespace {

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

TEST(Logs, KeepTheEntriesOfTwoProgramsWhole)
{
    const TemporaryFolder folder;
    const auto log = [&](char letter) {
        PosixFileSystem files;
        for (int i = 0; i < 500; ++i)
            ErrorLog(files, folder.File("log")).LogError(std::string(300, letter), letter, "source");
    };
    std::thread other(log, 'b');
    log('a');
    other.join();
    const std::string text = folder.Read("log");
    std::size_t whole = 0;
    for (const char letter : {'a', 'b'}) {
        const std::string entry =
            "\n" + std::to_string(letter) + " raised from source\n" + std::string(300, letter) + "\n";
        for (std::size_t at = 0; (at = text.find(entry, at)) != std::string::npos; at += entry.size())
            ++whole;
    }
    EXPECT_EQ(whole, 1000U);
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

TEST(WorkingCopies, AreNamedAfterSourceAndSuffixAndDieWithTheirOwner)
{
    FakeFileSystem files;
    files.files = {{"/prog/Tarvex.xml", "init"}, {"/home/Board.xml", "data"}, {"/tmp/mine.xml", "user's"}};
    const auto before = files.files;
    {
        WorkingCopies copies(files);
        EXPECT_EQ(copies.MakeTempCopy("/prog/Tarvex.xml", "42_TempSave_"), "/tmp/Tarvex42_TempSave_.xml");
        EXPECT_EQ(copies.MakeTempCopy("/home/Board.xml", ""), "/tmp/Board.xml");
        EXPECT_EQ(copies.MakeTempCopy("/home/Board.xml", ""), "/tmp/Board.xml");
        EXPECT_EQ(files.files["/tmp/Board.xml"], "data");
        EXPECT_TRUE(copies.Owns("/tmp/Board.xml"));

        EXPECT_EQ(copies.MakeTempCopy("/tmp/mine.xml", ""), "/tmp/mine.xml");
        EXPECT_FALSE(copies.Owns("/tmp/mine.xml"));
    }
    EXPECT_EQ(files.files, before);
}

TEST(WorkingCopies, PassOverFailuresAndThenDeleteNothing)
{
    FakeFileSystem files;
    files.files = {{"/a/b.xml", "new"}, {"/tmp/b.xml", "somebody else's"}};
    const auto before = files.files;
    EXPECT_EQ(WorkingCopies(files).MakeTempCopy("/a/b.xml", ""), "/tmp/b.xml");
    EXPECT_EQ(files.files, before);
    files.failing = {FileOperation::CopyToWorkingFile};
    EXPECT_EQ(WorkingCopies(files).MakeTempCopy("/a/b.xml", "42"), "/tmp/b42.xml");
    EXPECT_EQ(files.files, before);
}

TEST(WorkingCopies, SweepOnlyWhatDeadProcessesLeft)
{
    FakeFileSystem files;
    files.livingProcesses = {7};
    const std::map<std::string, std::string> staying = {
        {"/tmp/Tarvex7.xml", ""},     {"/tmp/Tarvex.xml", ""},      {"/tmp/Tarvex8x.xml", ""},
        {"/tmp/TarvexData8.xml", ""}, {"/tmp/Tarvex8.xml.bak", ""}, {"/tmp/Board8.xml", ""},
        {"/tmp/sub/Tarvex8.xml", ""}, {"/home/Tarvex8.xml", ""},    {"/tmp/Tarvex99999999999999999999.xml", ""},
        {"/tmp/Tarvex9.xml", "mine"}, {"/prog/Tarvex.xml", ""},
    };
    files.files = staying;
    files.files["/tmp/Tarvex8.xml"] = "";
    files.files["/tmp/Tarvex123456_TempSave_.xml"] = "";
    WorkingCopies(files).SweepLeftovers("/prog/Tarvex.xml");
    EXPECT_EQ(files.files, staying);
}

}
}

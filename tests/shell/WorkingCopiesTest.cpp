#include "shell/WorkingCopies.h"

#include "support/FakeFileSystem.h"

#include <gtest/gtest.h>

namespace tarvex {

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
    files.failing = {FileOperation::CopyToWorkingFile};
    EXPECT_EQ(WorkingCopies(files).MakeTempCopy("/a/b.xml", ""), "/tmp/b.xml");
    EXPECT_EQ(files.files["/tmp/b.xml"], "somebody else's");
}

TEST(WorkingCopies, SweepOnlyWhatDeadProcessesLeft)
{
    FakeFileSystem files;
    files.livingProcesses = {7};
    const std::map<std::string, std::string> staying = {
        {"/tmp/Tarvex7.xml", ""},     {"/tmp/Tarvex.xml", ""},      {"/tmp/Tarvex8x.xml", ""},
        {"/tmp/TarvexData8.xml", ""}, {"/tmp/Tarvex8.xml.bak", ""}, {"/tmp/Board8.xml", ""},
        {"/tmp/sub/Tarvex8.xml", ""}, {"/home/Tarvex8.xml", ""},    {"/tmp/Tarvex99999999999999999999.xml", ""},
    };
    files.files = staying;
    files.files["/tmp/Tarvex8.xml"] = "";
    files.files["/tmp/Tarvex123456_TempSave_.xml"] = "";
    WorkingCopies(files).SweepLeftovers("/prog/Tarvex.xml");
    EXPECT_EQ(files.files, staying);
}

}

#include "shell/SelfTest.h"
#include "support/DocumentFakes.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace tarvex {
namespace {

class RecordedOutput : public UT_Output {
public:
    void SetProgressRange(std::int32_t count) override { range = count; }
    void SetFileLink(const std::string& fileName) override { link = fileName; }
    void AddReportLine(const std::string& text) override { lines.push_back(text); }

    std::vector<std::string> lines;
    std::string link;
    std::int32_t range = 0;
};

/// Beside the program nobody may write.
class LockedProgramFolder : public FakeFileSystem {
public:
    void ReplaceFile(const std::string& path, std::string_view content) override
    {
        if (path.starts_with("/prog/"))
            Raise(ObjectError(1), "LockedProgramFolder", "Permission denied");
        written = path;
        FakeFileSystem::ReplaceFile(path, content);
    }

    std::string written;
};

class SelfTest : public testing::Test, protected DocumentFakes {
protected:
    SelfTest()
    {
        std::ifstream shipped(TARVEX_SHARE "/Tarvex.xml", std::ios::binary);
        InitFile().assign(std::istreambuf_iterator<char>(shipped), {});
    }

    void Run(FakeFileSystem& files) { RunSelfTest("/root/Tarvex_UT.txt", output, {state_, files, clock_, errors_}); }

    RecordedOutput output;
};

TEST_F(SelfTest, OfTheShippedProgramFindsNoFailure)
{
    Run(files_);
    ASSERT_EQ(output.lines.size(), 21u);
    EXPECT_EQ(output.lines[2], "I2CPacket Unit Test");
    EXPECT_EQ(output.lines[9], "     running: TestConstructors");
    EXPECT_EQ(output.lines[18], "TarvexData Unit Test SUCCESS!");
    EXPECT_EQ(output.lines.back(), "Unit Test Complete, no failures");
    EXPECT_EQ(output.range, 12);
    EXPECT_EQ(output.link, "/root/Tarvex_UT.txt");
    EXPECT_EQ(files_.files.at("/root/Tarvex_UT.txt"), "/root/Tarvex_UT.txt 2026-03-04 15:06:07\n\n");
    EXPECT_FALSE(files_.files.contains("/root/UT_Failures.txt"));
    EXPECT_TRUE(files_.files.contains("/prog/TarvexData_UT_data.xml"));
}

TEST_F(SelfTest, NamesAMissingBoardAndSaysWhereItIsListed)
{
    const std::string board = "<BoardID>C4B2</BoardID>";
    InitFile().replace(InitFile().find(board), board.size(), "");
    files_.files["/root/UT_Failures.txt"] = "older\n";
    Run(files_);
    EXPECT_EQ(files_.files.at("/root/UT_Failures.txt"),
              "older\nFAIL: 'failed to get Cendra product(0xC4B2)' @ 2026-03-04 15:06:07\n");
    EXPECT_EQ(output.lines[18], "TarvexData Unit Test FAILURES: 1");
    EXPECT_EQ(output.lines.back(), "!!!!!! Unit Test FAILURES, see /root/Tarvex_UT.txt for results");
    EXPECT_TRUE(files_.files.at("/root/Tarvex_UT.txt").ends_with("\nFailures: 1, listed in /root/UT_Failures.txt\n"));
}

TEST_F(SelfTest, GoesOnAfterAnUnexpectedErrorAndWithoutAReport)
{
    InitFile() = "no XML";
    Run(files_);
    EXPECT_NE(files_.files.at("/root/UT_Failures.txt").find("FAIL: TarvexData_UT::TestProductList unexpected error"),
              std::string::npos);
    EXPECT_EQ(output.lines[18], "TarvexData Unit Test FAILURES: 5");
    files_.failing = {FileOperation::OpenText};
    Run(files_);
    EXPECT_EQ(output.lines.size(), 42u);
    EXPECT_EQ(errors_.entries.at(0).description, "Unable to write the report /root/Tarvex_UT.txt");
}

TEST_F(SelfTest, WritesToTheTemporaryFolderWhereTheProgramFolderIsLocked)
{
    LockedProgramFolder locked;
    locked.files = files_.files;
    Run(locked);
    EXPECT_EQ(output.lines.back(), "Unit Test Complete, no failures");
    EXPECT_EQ(locked.written, "/tmp/TarvexData_UT_data42.xml");
    EXPECT_FALSE(locked.FileExists(locked.written));
}

}
}

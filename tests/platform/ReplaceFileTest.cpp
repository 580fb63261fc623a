#include "platform/files/PosixFileSystem.h"

#include "base/Error.h"
#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvex {

namespace {

namespace fs = std::filesystem;

class ReplaceFileTest : public testing::Test {
protected:
    unsigned Mode(const std::string& name) const
    {
        return static_cast<unsigned>(fs::status(folder.File(name)).permissions());
    }

    Error Failure(const std::string& name, std::string_view content = "new")
    {
        try {
            files.ReplaceFile(folder.File(name), content);
        } catch (const Error& error) {
            return error;
        }
        return Error(0, "", "nothing raised");
    }

    TemporaryFolder folder;
    PosixFileSystem files;
};

}

TEST_F(ReplaceFileTest, ReplacesTheContentAndKeepsTheMode)
{
    fs::permissions(folder.Write("a", "old"), static_cast<fs::perms>(0640));
    files.ReplaceFile(folder.File("a"), std::string(3000000, 'x'));
    EXPECT_EQ(folder.Read("a"), std::string(3000000, 'x'));
    EXPECT_EQ(Mode("a"), 0640U);
    const mode_t mask = umask(027);
    files.ReplaceFile(folder.File("b"), "");
    umask(mask);
    EXPECT_EQ(Mode("b"), 0640U);
    EXPECT_EQ(files.ListFolder(folder.path), (std::vector<std::string>{"a", "b"}));
}

TEST_F(ReplaceFileTest, ReplacesTheFileThatALinkPointsTo)
{
    fs::create_directory(folder.File("sub"));
    folder.Write("sub/real", "old");
    fs::create_symlink("sub/hop", folder.File("link"));
    fs::create_symlink("real", folder.File("sub/hop"));
    fs::create_symlink(folder.File("sub/new"), folder.File("dangling"));
    fs::create_symlink("circle", folder.File("circle"));
    files.ReplaceFile(folder.File("link"), "new");
    files.ReplaceFile(folder.File("dangling"), "made");
    EXPECT_TRUE(fs::is_symlink(folder.File("link")) && fs::is_symlink(folder.File("sub/hop")));
    EXPECT_EQ(folder.Read("sub/real"), "new");
    EXPECT_EQ(folder.Read("sub/new"), "made");
    EXPECT_EQ(Failure("circle").Number(), ObjectError(1));
}

TEST_F(ReplaceFileTest, RefusesWhatIsNoFileOrHasNoPlace)
{
    fs::create_directory(folder.File("sub"));
    mkfifo(folder.File("pipe").c_str(), 0600);
    EXPECT_EQ(Failure("sub").Number(), ObjectError(1));
    EXPECT_EQ(Failure("sub/").Number(), ObjectError(1));
    EXPECT_EQ(Failure("pipe").Number(), ObjectError(1));
    EXPECT_EQ(Failure("missing/a").Number(), kErrFileNotFound);
    EXPECT_EQ(Failure(std::string(256, 'n')).Number(), ObjectError(1));
    files.ReplaceFile(folder.File(std::string(255, 'n')), "fits");
    EXPECT_EQ(folder.Read(std::string(255, 'n')), "fits");
    EXPECT_EQ(Failure("sub").Source(), "PosixFileSystem::ReplaceFile");
}

TEST_F(ReplaceFileTest, KeepsTheOldFileWhenTheNewOneDoesNotFit)
{
    folder.Write("a", "old");
    const FileSizeLimit limit(65536);
    const Error error = Failure("a", std::string(100000, 'x'));
    EXPECT_EQ(error.Number(), ObjectError(1));
    EXPECT_NE(error.Description().find("File too large"), std::string::npos) << error.Description();
    EXPECT_EQ(folder.Read("a"), "old");
    EXPECT_EQ(files.ListFolder(folder.path), std::vector<std::string>{"a"});
}

TEST_F(ReplaceFileTest, LeavesReadOnlyFilesAlone)
{
    fs::permissions(folder.Write("a", "old"), static_cast<fs::perms>(0444));
    fs::permissions(folder.path, fs::perms::all);
    const uid_t user = geteuid();
    if (user == 0) { // to whom modes mean nothing
        ASSERT_EQ(seteuid(65534), 0);
    }
    const Error error = Failure("a");
    ASSERT_EQ(seteuid(user), 0);
    EXPECT_EQ(error.Number(), ObjectError(1));
    EXPECT_EQ(folder.Read("a"), "old");
}

}

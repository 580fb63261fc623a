#include "platform/files/PosixFileSystem.h"
#include "support/ExpectError.h"
#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex {
namespace {

namespace fs = std::filesystem;

unsigned ModeOf(const std::string& path) { return static_cast<unsigned>(fs::status(path).permissions()); }

class PosixFileSystemTest : public testing::Test {
protected:
    TemporaryFolder folder;
    PosixFileSystem files;
};

TEST_F(PosixFileSystemTest, ReadsRegularFilesUpToTheLimit)
{
    const std::string path = folder.Write("\xC3\xA4 b$'\".xml", std::string("1\0002", 3));
    EXPECT_EQ(files.ReadWholeFile(path, 3), std::string("1\0002", 3));
    EXPECT_NE(files.ReadWholeFile("/proc/self/stat", 65536), ""); // says that it has 0 bytes
    ExpectError([&] { files.ReadWholeFile(path, 2); }, ObjectError(1));
    ExpectError([&] { files.ReadWholeFile(folder.File("none"), 9); }, kErrFileNotFound);
    ExpectError([&] { files.ReadWholeFile(folder.path, 9); }, ObjectError(1));
    mkfifo(folder.File("pipe").c_str(), 0600);
    ExpectError([&] { files.ReadWholeFile(folder.File("pipe"), 9); }, ObjectError(1));
}

TEST_F(PosixFileSystemTest, MakesWorkingCopiesOfItsOwnOnly)
{
    const std::string source = folder.Write("source", "text");
    const std::string target = folder.Write("target", "a longer leftover");
    const auto refuses = [&](const std::string& from, const std::string& to, std::int32_t number) {
        ExpectError([&] { files.CopyToWorkingFile(from, to); }, number);
    };
    EXPECT_FALSE(files.IsOwnWorkingFile(target)); // a file of the user's own
    refuses(source, target, ObjectError(1));
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(files.IsOwnWorkingFile(target));
    EXPECT_TRUE(files.CopyToWorkingFile(source, target));
    EXPECT_EQ(folder.Read("target"), "text");
    EXPECT_EQ(ModeOf(target), 0600U);
    EXPECT_FALSE(files.CopyToWorkingFile(source, folder.path + "/./source"));
    EXPECT_EQ(folder.Read("source"), "text");

    folder.Write("victim", "kept");
    fs::create_symlink("victim", folder.File("link"));
    refuses(source, folder.File("link"), ObjectError(1));
    EXPECT_EQ(folder.Read("victim"), "kept");
    refuses(folder.File("none"), target, kErrFileNotFound);
    EXPECT_EQ(folder.Read("target"), "text");
}

TEST_F(PosixFileSystemTest, KnowsWhichProcessesLive)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(files.ProcessLives(getpid()) && files.ProcessLives(1));
    EXPECT_FALSE(files.ProcessLives(child) || files.ProcessLives(0) || files.ProcessLives(1LL << 40));
}

class ReplaceFileTest : public PosixFileSystemTest {
protected:
    void Refuse(const std::string& name, std::int32_t number)
    {
        ExpectError([&] { files.ReplaceFile(folder.File(name), "new"); }, number, "PosixFileSystem::ReplaceFile");
    }
};

TEST_F(ReplaceFileTest, ReplacesTheContentAndKeepsTheMode)
{
    const std::string path = folder.Write("a", "old");
    fs::permissions(path, static_cast<fs::perms>(0640));
    files.ReplaceFile(path, std::string(3000000, 'x'));
    EXPECT_EQ(folder.Read("a"), std::string(3000000, 'x'));
    EXPECT_EQ(ModeOf(path), 0640U);
    EXPECT_EQ(files.ListFolder(folder.path), std::vector<std::string>{"a"});
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
    Refuse("circle", ObjectError(1));
}

TEST_F(ReplaceFileTest, RefusesWhatIsNoFileOrHasNoPlace)
{
    fs::create_directory(folder.File("sub"));
    mkfifo(folder.File("pipe").c_str(), 0600);
    for (const std::string& name : {std::string("sub"), std::string("pipe"), std::string(256, 'n')})
        Refuse(name, ObjectError(1));
    Refuse("missing/a", kErrFileNotFound);
    files.ReplaceFile(folder.File(std::string(255, 'n')), "fits");
    EXPECT_EQ(folder.Read(std::string(255, 'n')), "fits");
}

TEST_F(ReplaceFileTest, LeavesNothingOfAFileThatDoesNotFit)
{
    folder.Write("a", "old");
    const std::string large = folder.Write("large", std::string(100000, 'x'));
    const FileSizeLimit limit(65536);
    ExpectError([&] { files.ReplaceFile(folder.File("a"), folder.Read("large")); }, ObjectError(1));
    ExpectError([&] { files.CopyToWorkingFile(large, folder.File("target")); }, ObjectError(1));
    EXPECT_EQ(folder.Read("a"), "old");
    EXPECT_EQ(files.ListFolder(folder.path).size(), 2U);
}

TEST_F(ReplaceFileTest, LeavesReadOnlyFilesAlone)
{
    fs::permissions(folder.Write("a", "old"), static_cast<fs::perms>(0444));
    fs::permissions(folder.path, fs::perms::all);
    const uid_t user = geteuid();
    if (user == 0) { // to whom modes mean nothing
        ASSERT_EQ(seteuid(65534), 0);
    }
    Refuse("a", ObjectError(1));
    ASSERT_EQ(seteuid(user), 0);
    EXPECT_EQ(folder.Read("a"), "old");
}

}
}

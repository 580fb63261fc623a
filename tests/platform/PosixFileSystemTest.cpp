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

}

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

TEST_F(PosixFileSystemTest, FindsOwnFilesWhateverTheLetterCase)
{
    fs::create_directory(folder.File("Images"));
    const std::string exact = folder.Write("Images/Red_Skew.JPG", "");
    const std::string lower = folder.Write("Images/red_skew.jpg", "");
    EXPECT_EQ(files.FindOwnFile(exact), exact);
    EXPECT_EQ(files.FindOwnFile(lower), lower);
    EXPECT_EQ(files.FindOwnFile(folder.path + "\\IMAGES\\Red_skew.Jpg"), exact);
    EXPECT_EQ(files.FindOwnFile(folder.File("images/Blue.jpg")), folder.File("images/Blue.jpg"));
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

TEST_F(PosixFileSystemTest, RemovesAWorkingCopyThatDoesNotFit)
{
    const std::string source = folder.Write("source", std::string(100000, 'x'));
    const FileSizeLimit limit(65536);
    ExpectError([&] { files.CopyToWorkingFile(source, folder.File("target")); }, ObjectError(1));
    EXPECT_EQ(files.ListFolder(folder.path), std::vector<std::string>{"source"});
}

TEST_F(PosixFileSystemTest, WritesLinesAtOnceAndForTheUserAlone)
{
    const std::string path = folder.Write("log", "old\n");
    const auto appending = files.OpenText(path, OpenMode::Append);
    const auto second = files.OpenText(path, OpenMode::Append);
    appending->WriteLine("one");
    second->WriteLine("");
    appending->WriteLine("three");
    EXPECT_EQ(folder.Read("log"), "old\none\n\nthree\n");
    files.OpenText(path, OpenMode::Overwrite)->WriteLine("new");
    EXPECT_EQ(folder.Read("log"), "new\n");
    EXPECT_EQ(files.OpenText(folder.File("missing/log"), OpenMode::Append), nullptr);
    files.OpenText(folder.File("fresh"), OpenMode::Append);
    EXPECT_EQ(ModeOf(folder.File("fresh")), 0600U);
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

}

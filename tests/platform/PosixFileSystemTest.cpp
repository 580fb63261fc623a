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

unsigned ModeOf(const std::string& path) { return static_cast<unsigned>(fs::status(path).permissions()); }

/// The number of the Error that the call raises, 0 for none.
template <class Call> std::int32_t NumberOf(Call call)
{
    try {
        call();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

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
    EXPECT_EQ(NumberOf([&] { files.ReadWholeFile(path, 2); }), ObjectError(1));
    EXPECT_EQ(NumberOf([&] { files.ReadWholeFile(folder.File("none"), 9); }), kErrFileNotFound);
    EXPECT_EQ(NumberOf([&] { files.ReadWholeFile(folder.path, 9); }), ObjectError(1));
    mkfifo(folder.File("pipe").c_str(), 0600);
    EXPECT_EQ(NumberOf([&] { files.ReadWholeFile(folder.File("pipe"), 9); }), ObjectError(1));
    EXPECT_EQ(files.ReadWholeFile(folder.Write("empty", ""), 0), "");
    EXPECT_NE(files.ReadWholeFile("/proc/self/stat", 65536), ""); // says that it has 0 bytes
}

TEST_F(PosixFileSystemTest, SaysOfRegularFilesOnlyThatTheyExist)
{
    const std::string path = folder.Write("a", "");
    fs::create_symlink("a", folder.File("link"));
    fs::create_symlink("nowhere", folder.File("dangling"));
    EXPECT_TRUE(files.FileExists(path) && files.FileExists(folder.File("link")));
    EXPECT_FALSE(files.FileExists(folder.path) || files.FileExists(folder.File("dangling")) || files.FileExists(""));
    EXPECT_TRUE(files.IsSameFile(path, folder.path + "/./link"));
    EXPECT_FALSE(files.IsSameFile(path, folder.Write("b", "")));
    EXPECT_FALSE(files.IsSameFile(folder.File("no"), folder.File("no")));
    EXPECT_EQ(files.ListFolder(folder.path), (std::vector<std::string>{"a", "b", "dangling", "link"}));
    EXPECT_TRUE(files.ListFolder(path).empty());
    EXPECT_TRUE(files.Remove(path));
    EXPECT_FALSE(files.Remove(path) || files.Remove(folder.path));
}

TEST_F(PosixFileSystemTest, FindsOwnFilesWhateverTheLetterCase)
{
    fs::create_directory(folder.File("Images"));
    folder.Write("Images/Red_Skew.JPG", "");
    folder.Write("Images/red_skew.jpg", "");
    const std::string exact = folder.File("Images/Red_Skew.JPG");
    EXPECT_EQ(files.FindOwnFile(exact), exact);
    EXPECT_EQ(files.FindOwnFile(folder.File("Images/red_skew.jpg")), folder.File("Images/red_skew.jpg"));
    EXPECT_EQ(files.FindOwnFile(folder.path + "\\IMAGES\\Red_skew.Jpg"), exact);
    EXPECT_EQ(files.FindOwnFile(folder.File("images//red_skew.JPG")), exact);
    EXPECT_EQ(files.FindOwnFile(folder.File("images/Blue.jpg")), folder.File("images/Blue.jpg"));
}

TEST_F(PosixFileSystemTest, MakesWorkingCopiesOfItsOwnOnly)
{
    const std::string source = folder.Write("source", "text");
    const std::string target = folder.Write("target", "a longer leftover");
    EXPECT_NE(NumberOf([&] { files.CopyToWorkingFile(source, target); }), 0) << "a file of the user's own";
    EXPECT_FALSE(files.IsOwnWorkingFile(target));
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(files.IsOwnWorkingFile(target));
    EXPECT_TRUE(files.CopyToWorkingFile(source, target));
    EXPECT_EQ(folder.Read("target"), "text");
    EXPECT_EQ(ModeOf(target), 0600U);
    EXPECT_FALSE(
        files.CopyToWorkingFile(source, folder.path + "/../" + fs::path(folder.path).filename().string() + "/source"));
    EXPECT_EQ(folder.Read("source"), "text");

    folder.Write("victim", "kept");
    fs::create_symlink("victim", folder.File("link"));
    fs::create_symlink("nowhere", folder.File("dangling"));
    fs::create_directory(folder.File("sub"));
    for (const char* name : {"link", "dangling", "sub", "missing/target"})
        EXPECT_NE(NumberOf([&] { files.CopyToWorkingFile(source, folder.File(name)); }), 0) << name;
    EXPECT_EQ(folder.Read("victim"), "kept");
    EXPECT_FALSE(fs::exists(folder.File("nowhere")));
    EXPECT_EQ(NumberOf([&] { files.CopyToWorkingFile(folder.File("none"), target); }), kErrFileNotFound);
    EXPECT_EQ(NumberOf([&] { files.CopyToWorkingFile(folder.path, target); }), ObjectError(1));
    EXPECT_EQ(folder.Read("target"), "text");
}

TEST_F(PosixFileSystemTest, RemovesAWorkingCopyThatDoesNotFit)
{
    const std::string source = folder.Write("source", std::string(100000, 'x'));
    const FileSizeLimit limit(65536);
    EXPECT_EQ(NumberOf([&] { files.CopyToWorkingFile(source, folder.File("target")); }), ObjectError(1));
    EXPECT_EQ(files.ListFolder(folder.path), std::vector<std::string>{"source"});
}

TEST_F(PosixFileSystemTest, WritesLinesAtOnceAndLosesThoseThatDoNotFit)
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
    files.OpenText(folder.File("fresh"), OpenMode::Append);
    EXPECT_EQ(ModeOf(folder.File("fresh")), 0600U);
    EXPECT_EQ(files.OpenText(folder.File("missing/log"), OpenMode::Append), nullptr);
    if (const auto full = files.OpenText("/dev/full", OpenMode::Append))
        full->WriteLine("lost");
}

TEST_F(PosixFileSystemTest, CreatesFoldersForTheUserAlone)
{
    EXPECT_TRUE(files.CreateFolder(folder.File("x/y")));
    EXPECT_TRUE(files.CreateFolder(folder.File("x/y")));
    EXPECT_EQ(ModeOf(folder.File("x")) | ModeOf(folder.File("x/y")), 0700U);
    EXPECT_FALSE(files.CreateFolder(folder.Write("file", "") + "/z"));
}

}

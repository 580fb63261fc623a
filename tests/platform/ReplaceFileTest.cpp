#include "platform/files/PosixFileSystem.h"

#include "support/ExpectError.h"
#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tarvex {

namespace {

namespace fs = std::filesystem;

class ReplaceFileTest : public testing::Test {
protected:
    void Refuse(const std::string& name, std::int32_t number)
    {
        ExpectError([&] { files.ReplaceFile(folder.File(name), "new"); }, number, "PosixFileSystem::ReplaceFile");
    }

    TemporaryFolder folder;
    PosixFileSystem files;
};

}

TEST_F(ReplaceFileTest, ReplacesTheContentAndKeepsTheMode)
{
    const std::string path = folder.Write("a", "old");
    fs::permissions(path, static_cast<fs::perms>(0640));
    files.ReplaceFile(path, std::string(3000000, 'x'));
    EXPECT_EQ(folder.Read("a"), std::string(3000000, 'x'));
    EXPECT_EQ(fs::status(path).permissions(), static_cast<fs::perms>(0640));
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

TEST_F(ReplaceFileTest, KeepsTheOldFileWhenTheNewOneDoesNotFit)
{
    folder.Write("a", "old");
    const FileSizeLimit limit(65536);
    ExpectError([&] { files.ReplaceFile(folder.File("a"), std::string(100000, 'x')); }, ObjectError(1));
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
    Refuse("a", ObjectError(1));
    ASSERT_EQ(seteuid(user), 0);
    EXPECT_EQ(folder.Read("a"), "old");
}

}

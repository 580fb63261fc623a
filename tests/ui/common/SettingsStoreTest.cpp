#include "ui/common/SettingsStore.h"

#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvex {

namespace {

class SettingsStoreTest : public ::testing::Test {
protected:
    void Fill(const std::string& content) const { folder.Write("tarvex.ini", content); }
    std::string Content() const { return folder.Read("tarvex.ini"); }

    TemporaryFolder folder;
    const std::string path = folder.File("tarvex.ini");
};

}

TEST_F(SettingsStoreTest, KeepsWhatIsNotItsOwn)
{
    Fill("; by hand\n[Other]\nBaud=1\n\n[UserPreferences]\r\n  Baud = 9600\r\n\n[Last]\nx");
    SettingsStore store(path);
    EXPECT_EQ(store.Read("UserPreferences", "Baud"), "9600");
    store.Write("UserPreferences", "Baud", "19200");
    store.Write("UserPreferences", "COM_Port", "2");
    store.Write("Last", "y", "3");
    ASSERT_TRUE(store.Flush());
    EXPECT_EQ(Content(),
              "; by hand\n[Other]\nBaud=1\n\n[UserPreferences]\r\nBaud=19200\nCOM_Port=2\n\n[Last]\nx\ny=3\n");
}

TEST_F(SettingsStoreTest, KeepsWhatAnotherProgramHasStoredSince)
{
    SettingsStore first(path);
    SettingsStore second(path);
    first.Write("UserPreferences", "Baud", "19200");
    ASSERT_TRUE(first.Flush());
    second.Write("RecentFiles", "File1", "/b.xml");
    second.Refresh();
    EXPECT_EQ(second.Read("UserPreferences", "Baud"), "19200");
    first.Write("UserPreferences", "Baud", "38400");
    ASSERT_TRUE(first.Flush());
    ASSERT_TRUE(second.Flush());
    EXPECT_EQ(Content(), "[UserPreferences]\nBaud=38400\n[RecentFiles]\nFile1=/b.xml\n");
}

TEST_F(SettingsStoreTest, GivesNothingFromABrokenStoreAndNeverWaits)
{
    const std::tuple<const char*, std::function<void()>, bool> cases[] = {
        {"binary noise", [&] { Fill(std::string("[UserPreferences]\nBaud=1\0\xFF\xFE", 27)); }, true},
        {"locked by another program", [&] { std::ofstream(path + ".lock") << getpid() << "\nother\nhost\n"; }, true},
        {"a pipe that nobody fills", [&] { mkfifo(path.c_str(), 0600); }, false},
        {"far too large", [&] { Fill("x"), std::filesystem::resize_file(path, 1U << 30); }, false},
        {"a link to nowhere", [&] { symlink("/nowhere/at/all.ini", path.c_str()); }, false},
    };
    for (const auto& [name, prepare, writable] : cases) {
        SCOPED_TRACE(name);
        std::filesystem::remove_all(path);
        prepare();
        QElapsedTimer watch;
        watch.start();
        SettingsStore store(path);
        EXPECT_EQ(store.Read("UserPreferences", "Baud"), std::nullopt);
        store.Write("UserPreferences", "Baud", "9600");
        EXPECT_EQ(store.Flush(), writable);
        EXPECT_LT(watch.elapsed(), 1000);
        EXPECT_EQ(SettingsStore(path).Read("UserPreferences", "Baud").has_value(), writable);
    }
}

TEST_F(SettingsStoreTest, KeepsTheOldFileWhenTheDiskIsFull)
{
    Fill("[UserPreferences]\nBaud=9600\n");
    SettingsStore store(path);
    store.Write("UserPreferences", "Baud", "19200");
    {
        const FileSizeLimit full(0);
        EXPECT_FALSE(store.Flush());
    }
    EXPECT_EQ(Content(), "[UserPreferences]\nBaud=9600\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1);
    EXPECT_TRUE(store.Flush());
    EXPECT_EQ(Content(), "[UserPreferences]\nBaud=19200\n");
}

}

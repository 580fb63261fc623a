#include "ui/common/SettingsStore.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvex {

namespace {

class SettingsStoreTest : public ::testing::Test {
protected:
    void Fill(std::string_view content) const { std::ofstream(path, std::ios::binary) << content; }

    std::string Content() const
    {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

    QTemporaryDir folder;
    const std::string path = folder.filePath("tarvex.ini").toStdString();
};

/// While it lives, no file can grow: every write fails as on a full disk.
class FullDisk {
public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit none = before_;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
};

}

TEST_F(SettingsStoreTest, GivesBackEveryTextAfterARestart)
{
    const std::vector<std::string> texts{"True",  "",        "0x0000", " blanks ",    "\"quoted\"",       "\"",
                                         "a=b;c", "back\\n", "a\nb\r", "\xC3\xA4[x]", "[UserPreferences]"};
    SettingsStore store(path);
    for (std::size_t i = 0; i < texts.size(); ++i)
        store.Write("UserPreferences", "Key" + std::to_string(i), texts[i]);
    ASSERT_TRUE(store.Flush());

    SettingsStore again(path);
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(again.Read("UserPreferences", "Key" + std::to_string(i)), texts[i]);
    EXPECT_EQ(again.Read("UserPreferences", "Key"), std::nullopt);
    EXPECT_EQ(again.Read("Other", "Key0"), std::nullopt);
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

TEST_F(SettingsStoreTest, CreatesItsFolder)
{
    const std::string deep = folder.filePath("new/folder/tarvex.ini").toStdString();
    SettingsStore store(deep);
    store.Write("UserPreferences", "Baud", "9600");
    EXPECT_TRUE(store.Flush());
    EXPECT_EQ(SettingsStore(deep).Read("UserPreferences", "Baud"), "9600");
}

TEST_F(SettingsStoreTest, GivesNothingFromABrokenStoreAndNeverWaits)
{
    struct Case {
        const char* name;
        std::function<void()> prepare;
        bool writable;
    };
    const std::vector<Case> cases{
        {"binary noise", [&] { Fill(std::string("[UserPreferences]\nBaud=1\0\xFF\xFE", 27)); }, true},
        {"text without sense", [&] { Fill("]]][[\n===\n\n\\\n[UserPreferences\nBaud"); }, true},
        {"a folder", [&] { std::filesystem::create_directory(path); }, false},
        {"a pipe that nobody fills", [&] { mkfifo(path.c_str(), 0600); }, false},
        {"far too large", [&] { Fill("x"), std::filesystem::resize_file(path, 1U << 30); }, false},
        {"a link to nowhere", [&] { symlink("/nowhere/at/all.ini", path.c_str()); }, false},
        {"a link to itself", [&] { symlink(path.c_str(), path.c_str()); }, false},
    };
    for (const Case& broken : cases) {
        SCOPED_TRACE(broken.name);
        std::filesystem::remove_all(path);
        broken.prepare();
        QElapsedTimer watch;
        watch.start();
        SettingsStore store(path);
        EXPECT_EQ(store.Read("UserPreferences", "Baud"), std::nullopt);
        store.Write("UserPreferences", "Baud", "9600");
        EXPECT_EQ(store.Flush(), broken.writable);
        EXPECT_LT(watch.elapsed(), 1000);
        EXPECT_EQ(SettingsStore(path).Read("UserPreferences", "Baud").has_value(), broken.writable);
    }
}

TEST_F(SettingsStoreTest, DoesNotWaitForLocksOfOthers)
{
    Fill("[UserPreferences]\nBaud=9600\n");
    std::ofstream(path + ".lock") << getpid() << "\nother\nhost\n";
    const int held = open(path.c_str(), O_RDWR);
    const int heldLock = open((path + ".lock").c_str(), O_RDWR);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    ASSERT_EQ(flock(heldLock, LOCK_EX), 0);

    QElapsedTimer watch;
    watch.start();
    SettingsStore store(path);
    EXPECT_EQ(store.Read("UserPreferences", "Baud"), "9600");
    store.Write("UserPreferences", "Baud", "19200");
    EXPECT_TRUE(store.Flush());
    EXPECT_LT(watch.elapsed(), 1000);
    close(held);
    close(heldLock);
}

TEST_F(SettingsStoreTest, SaysWhenItCannotBeWrittenAndKeepsTheOldFile)
{
    Fill("[UserPreferences]\nBaud=9600\n");
    SettingsStore store(path);
    store.Write("UserPreferences", "Baud", "19200");
    {
        const FullDisk full;
        EXPECT_FALSE(store.Flush());
    }
    EXPECT_EQ(Content(), "[UserPreferences]\nBaud=9600\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path().toStdString()), {}), 1);
    EXPECT_TRUE(store.Flush());
    EXPECT_EQ(SettingsStore(path).Read("UserPreferences", "Baud"), "19200");

    SettingsStore under(path + "/below/a/file.ini");
    under.Write("UserPreferences", "Baud", "1");
    EXPECT_FALSE(under.Flush());
}

}

#include "platform/SystemClock.h"
#include "platform/files/PosixFileSystem.h"
#include "platform/zorbus/SimulatedNorvaneSystem.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex {

TEST(SystemClock, TellsDateAndTimeWithSeconds)
{
    const std::string text = SystemClock().NowText();
    std::tm parts{};
    ASSERT_NE(strptime(text.c_str(), "%Y-%m-%d %H:%M:%S", &parts), nullptr) << text;
    parts.tm_isdst = -1;
    EXPECT_NEAR(std::difftime(std::time(nullptr), std::mktime(&parts)), 0, 5);
}

TEST(PosixFileSystem, TakesTheTemporaryFolderOfTheUserWhenItIsOne)
{
    const TemporaryFolder folder;
    const char* old = std::getenv("TMPDIR");
    const std::string saved = old ? old : "";
    PosixFileSystem files;
    setenv("TMPDIR", (folder.path + "//").c_str(), 1);
    EXPECT_EQ(files.TemporaryFolder(), folder.path);
    setenv("TMPDIR", folder.Write("file", "").c_str(), 1);
    EXPECT_EQ(files.TemporaryFolder(), "/tmp");
    old ? setenv("TMPDIR", saved.c_str(), 1) : unsetenv("TMPDIR");
}

TEST(PosixFileSystem, KnowsWhichProcessesLive)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    waitpid(child, nullptr, 0);
    PosixFileSystem files;
    EXPECT_TRUE(files.ProcessLives(getpid()) && files.ProcessLives(1));
    EXPECT_FALSE(files.ProcessLives(child) || files.ProcessLives(0) || files.ProcessLives(-1));
    EXPECT_FALSE(files.ProcessLives(1LL << 40));
}

TEST(SimulatedNorvaneSystem, ComparesVersionsAsNumbers)
{
    SimulatedNorvaneSystem system;
    EXPECT_EQ(system.Version(), "1.1.11");
    EXPECT_TRUE(system.MinimumVersion("1", "1", "11") && system.MinimumVersion("1", "1", "9"));
    EXPECT_FALSE(system.MinimumVersion("1", "1", "12") || system.MinimumVersion("1", "10", "0"));
}

}

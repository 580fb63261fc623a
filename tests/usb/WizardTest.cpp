#include "cli/ProgramTest.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

namespace tarvex {
namespace {

void Board(const std::string& command) { std::ofstream("/run/board") << command << std::endl; }

void WaitForFile(const char* path)
{
    while (!std::ifstream(path))
        std::this_thread::yield();
}

/// What was written to the board's registers since the last call: processor, parameter and byte of each write.
std::string TakeWrites()
{
    Board("writes");
    WaitForFile("/run/writes");
    std::string writes;
    std::ifstream file("/run/writes");
    for (std::string line; std::getline(file, line);)
        writes += (writes.empty() ? "" : ", ") + line;
    std::filesystem::remove("/run/writes");
    return writes;
}

void ExpectLastWrites(const std::string& expected)
{
    const std::string writes = TakeWrites();
    EXPECT_EQ(writes.substr(writes.size() - std::min(expected.size(), writes.size())), expected);
}

/// The wizard of the unmodified program in the virtual machine, with a board on its USB stack.
class Wizard : public ProgramTest {
protected:
    Wizard() : driver((PrepareBoard(), With({"-wVexlon"})))
    {
        driver.WaitText("StatusBar1/Message", "Success connecting and retrieving data.");
        TakeWrites();
    }

    static void PrepareBoard()
    {
        for (const char* value :
             {"451 21 FF", "451 22 C8", "451 23 C8", "451 24 A", "451 25 14", "451 26 1E", "451 2C F7", "452 2 FE"})
            Board(std::string("set ") + value);
    }
    void Choose(const std::string& entry)
    {
        driver.Menu(entry);
        driver.WaitIdle();
    }
    void Select(const std::string& element, const std::string& position)
    {
        driver.Item("ListView1/" + element);
        driver.WaitIdle();
        EXPECT_EQ(driver.Text("StatusText"), position) << element;
        Press("Tab");
    }
    void Press(const std::string& key, int times = 1)
    {
        for (int i = 0; i < times; ++i) {
            driver.Key(key);
            driver.WaitIdle();
        }
    }
    void Answer(const std::string& question, const std::string& key)
    {
        driver.WaitText("MessageBox", question);
        Press(key);
    }
    void Drag() { driver.Send({"drag", "HScroll1"}); }
    void WaitForEndOfDrag()
    {
        driver.Send({"wait", "released", "HScroll1"});
        driver.WaitIdle();
    }

    ProgramDriver driver;
};

constexpr const char* k1920 = "451 28 9C, 451 29 0, 452 4 7, 452 5 80, 452 6 4, 452 7 38";
constexpr const char* k1024At60 = "451 28 53, 451 29 30, 452 4 4, 452 5 0, 452 6 3, 452 7 0, 451 2B 60";

TEST_F(Wizard, ProgramsModesAndTakesThemBack)
{
    for (const char* key : {"Escape", "Return"}) {
        Choose("Resolution0_8");
        Answer("Use a default refresh rate of 60Hz?", key);
        EXPECT_EQ(TakeWrites(), std::string(k1920) + (key[0] == 'R' ? ", 451 2B F0" : ""));
        EXPECT_EQ(driver.Text("StatusBar1/Refresh"), key[0] == 'R' ? "60Hz" : " ");
    }
    Choose("Resolution0_2");
    EXPECT_EQ(TakeWrites(), k1024At60);
    EXPECT_EQ(driver.Text("StatusBar1/Resolution"), "1024x768");
    Choose("Vexlon_Wizard/Undo");
    EXPECT_EQ(TakeWrites(), std::string(k1920) + ", 451 2B F0");
    Choose("Refresh0_6"); // too wide for it
    EXPECT_EQ(TakeWrites(), "");
    Choose("Resolution0_2");
    TakeWrites();
    Choose("Refresh0_5");
    EXPECT_EQ(TakeWrites(), "451 2B 68");
    Choose("Vexlon_Wizard/Undo");
    EXPECT_EQ(TakeWrites(), "451 2B 60");
    EXPECT_EQ(driver.Text("StatusBar1/Refresh"), " ");

    Select("Fine Tune", "3");
    Choose("PLL_MSBIncrement");
    EXPECT_EQ(TakeWrites(), "451 28 54, 451 29 0");
    Choose("PLL_MSBDecrement");
    EXPECT_EQ(TakeWrites(), "451 28 53, 451 29 F0");
}

TEST_F(Wizard, MovesColoursAndThePulse)
{
    Select("Brightness", "234");
    Press("Left", 5);
    ExpectLastWrites("451 24 F, 451 25 19, 451 26 23");
    Select("Contrast", "36");
    driver.Key("Left");
    Answer("gain differential in Red Gain to be lost", "Escape");
    Press("Left");
    EXPECT_EQ(TakeWrites(), "");
    EXPECT_EQ(driver.Text("StatusText"), "36"); // what the board still holds
    Press("Right");
    EXPECT_EQ(TakeWrites(), "451 21 FE, 451 22 C7, 451 23 C7");
    Select("Horizontal Position", "0");
    Choose("IncreaseHSyncPulseWidth");
    EXPECT_EQ(TakeWrites(), "451 2C FF");
    for (int i = 0; i < 26; ++i)
        Choose("DecreaseHSyncPulseWidth");
    ExpectLastWrites("451 2C 5, 451 2C 0");
}

TEST_F(Wizard, ADragKeepsUpWithASlowBoardAndOutlivesItsCable)
{
    Board("slow 2");
    Select("Horizontal Position", "0");
    Drag();
    WaitForEndOfDrag();
    std::istringstream early(TakeWrites());
    driver.WaitIdle();
    EXPECT_EQ(TakeWrites(), ""); // nothing waited anywhere
    std::vector<int> values;
    for (std::string processor, parameter, value; early >> processor >> parameter >> value;)
        values.push_back(std::stoi(value, nullptr, 16));
    std::printf("a drag over 255 positions wrote %zu of them\n", values.size());
    ASSERT_GT(values.size(), 10U);
    const auto stale = std::adjacent_find(values.begin(), values.end(), std::less_equal<>());
    EXPECT_EQ(stale, values.end()); // each position once at most, and none after a later one
    EXPECT_EQ(values.back(), 0);
    EXPECT_EQ(driver.Text("StatusText"), "254");

    Press("Home");
    Drag();
    Board("unplug");
    driver.WaitText("StatusText", "Communication Failure");
    WaitForEndOfDrag();
    const std::string log = folder.Read("TarvexError.log");
    EXPECT_EQ(log.find("Failed to write"), log.rfind("Failed to write")); // in one transfer at most
    Board("plug");
    WaitForFile("/dev/hidraw0");
    driver.Item("ListView1/Horizontal Position");
    driver.WaitIdle();
    TakeWrites();
    const int position = std::stoi(driver.Text("StatusText"));
    Press("Tab");
    Press("Right");
    char write[16];
    std::snprintf(write, sizeof write, "452 2 %X", 254 - position - 1);
    EXPECT_EQ(TakeWrites(), write);
}

}
}

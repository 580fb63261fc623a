#include "cli/ProgramTest.h"

#include <cstdio>
#include <thread>

namespace tarvex {
namespace {

/// The unmodified program in the virtual machine, with a board on its USB stack that takes commands.
class Window : public ProgramTest {
protected:
    Window() : driver(With({}))
    {
        driver.WaitShown("AdvancedForm");
        LatestBeat();
        driver.Menu("ProductMenu_0");
        driver.WaitText("UI_RegisterItem_0/NameLabel", "Scratch");
        driver.Menu("CommLinkMenu_0");
        driver.WaitText("StatusBar1/Message", "registers read, none failed");
        driver.WaitIdle();
    }

    void Board(const std::string& command) { std::ofstream("/run/board") << command << std::endl; }
    std::string Value(int row) { return driver.Text("UI_RegisterItem_" + std::to_string(row) + "/txtInput"); }
    void Enter(int row, const std::string& value)
    {
        driver.Click("UI_RegisterItem_" + std::to_string(row) + "/txtInput");
        driver.Key("Ctrl+A");
        driver.Type(value);
    }
    void Press(const std::string& button, const std::string& outcome)
    {
        driver.Click(button);
        driver.WaitIdle();
        driver.WaitText("StatusBar1/Message", outcome);
    }
    void ResendAll(const std::string& outcome)
    {
        driver.Click("BTN_Load");
        driver.WaitText("MessageBox", "Resend all anyway?");
        driver.Key("Alt+Y");
        driver.WaitText("StatusBar1/Message", outcome);
        driver.WaitIdle();
    }
    /// By how many milliseconds a beat of the window's event loop came too late, at worst, since the last call.
    int LatestBeat() { return std::stoi(driver.Send({"beat"})); }

    ProgramDriver driver;
};

TEST_F(Window, ShowsWhatTheBoardHolds)
{
    EXPECT_EQ(Value(0), "80");
    Enter(1, "5a");
    Press("BTN_Load", "1 register written, none failed");
    Enter(1, "11");
    Press("BTN_Read", "registers read, none failed");
    EXPECT_EQ(Value(1), "5A");
    Press("CHK_RealTime", "each change is written at once");
    Enter(2, "c");
    driver.WaitText("StatusBar1/Message", " written.");
    Press("BTN_Read", "registers read, none failed");
    EXPECT_EQ(Value(2), "C");
}

TEST_F(Window, KeepsTheSettingsOfTheBoardInAFile)
{
    const auto nameFile = [&](const std::string& entry) {
        driver.Menu("AdvancedForm/" + entry);
        driver.WaitShown("FileDialog");
        driver.Type(folder.File("mine.xml"));
        driver.WaitText("fileNameEdit", "mine.xml"); // the dialog lists the folder meanwhile
        driver.Key("Return");
    };
    Enter(1, "5a");
    Press("BTN_Load", "1 register written, none failed");
    nameFile("SaveAs");
    driver.WaitText("StatusBar1/Message", "saved");
    Enter(1, "11");
    Press("BTN_Load", "1 register written, none failed");
    nameFile("Open");
    driver.WaitText("UI_RegisterItem_1/txtInput", "5A");
    Press("BTN_Load", "registers written, none failed");
    Enter(1, "22");
    Press("BTN_Read", "registers read, none failed");
    EXPECT_EQ(Value(1), "5A");
}

TEST_F(Window, LivesWhateverTheBoardDoes)
{
    ResendAll("registers written, none failed");
    const int healthy = LatestBeat();

    Board("deaf"); // the system itself still takes a few reports
    ResendAll(" 1 failed. Stopped: the board takes nothing.");
    const int deaf = LatestBeat();

    Board("heal");
    Enter(1, "33");
    Press("BTN_Load", "2 registers written, none failed");
    Board("unplug");
    driver.WaitText("StatusBar1/Message", "Comm Failure recieved in Advanced Form");
    Enter(1, "22");
    Board("plug");
    while (!std::ifstream("/dev/hidraw0"))
        std::this_thread::yield();
    Press("BTN_Read", "registers read, none failed");
    EXPECT_EQ(Value(1), "33");
    const int unplugged = LatestBeat();

    std::printf("latest beat of the window: %d ms with a healthy board, %d with one that takes nothing, %d when it was "
                "unplugged\n",
                healthy, deaf, unplugged);
    EXPECT_LE(deaf, healthy + 100);
    EXPECT_LE(unplugged, healthy + 100);
}

}
}

#include "cli/ProgramTest.h"

namespace tarvex {
namespace {

TEST_F(ProgramTest, ShowsUsageOrAnUnknownSwitchAndEnds)
{
    const struct {
        std::vector<std::string> switches;
        const char* text;
        int code;
    } cases[] = {{{"-H"}, "-zb_unit_test  run the unit tests and close", 0},
                 {{"-demo", "-Bogus"}, "Unrecognized command line parameter: bogus", 1}};
    for (const auto& c : cases) {
        ProgramDriver driver(With(c.switches));
        driver.WaitText("MessageBox", c.text);
        driver.Key("Return");
        EXPECT_EQ(driver.ExitCode(), c.code);
    }
}

TEST_F(ProgramTest, BatchModeEndsWithoutABox)
{
    EXPECT_EQ(ProgramDriver(With({"-auto"})).ExitCode(), 5);
    EXPECT_EQ(ProgramDriver(With({"-auto", "-bogus"})).ExitCode(), 1);
    EXPECT_EQ(ProgramDriver(With({"board.xml", "-auto"})).ExitCode(), 2);
    EXPECT_EQ(WorkingCopies(), 0);
}

TEST_F(ProgramTest, WithoutADisplayItSaysSoAndEndsWith8)
{
    ProgramStart start = With({});
    start.environment["QT_QPA_PLATFORM"] = {};
    ProgramDriver driver(start);
    EXPECT_EQ(driver.ExitCode(), 8);
    EXPECT_NE(driver.ErrorOutput().find("display"), std::string::npos);
}

TEST_F(ProgramTest, AnUnusableInitFileIsLoggedAndEndsWith2)
{
    ProgramDriver driver(Copied({}, "<SignalTarvex version=\"2.3.9\"><VID>12C5</VID></SignalTarvex>"));
    EXPECT_EQ(driver.ExitCode(), 2);
    EXPECT_NE(folder.Read("TarvexError.log").find(" raised from "), std::string::npos);
    EXPECT_FALSE(driver.ErrorOutput().empty());
    EXPECT_EQ(WorkingCopies(), 0);
}

/// A new user at the shipped network of enclosures, with the product Cendra.
TEST_F(ProgramTest, AnEnclosureIsReachedByItsAddressAndSettingsAreKept)
{
    ProgramDriver driver(With({}));
    const auto enter = [&](const std::string& box, const std::string& text) {
        driver.Click(box);
        driver.Key("Ctrl+A");
        driver.Type(text);
    };
    const auto closeBox = [&](const std::string& text, const char* key) {
        driver.WaitText("MessageBox", text);
        driver.Key(key);
    };
    const auto click = [&](const std::string& button, const std::string& status) {
        driver.Click(button);
        driver.WaitText("StatusBar1/Message", status);
    };
    driver.WaitShown("AdvancedForm");
    driver.Menu("ProductMenu_5");
    closeBox("Enter the address of the enclosure", "Return");
    enter("TXT_ZorbusID", "0x1A2B");
    enter("TXT_ChannelNum", "3");
    click("BTN_Read", "5 registers read, none failed.");
    enter("UI_RegisterItem_1/txtInput", "7");
    click("BTN_Load", "1 register written, none failed.");
    enter("UI_RegisterItem_1/txtInput", "5");
    click("BTN_Read", "5 registers read, none failed.");
    EXPECT_EQ(driver.Text("UI_RegisterItem_1/txtInput"), "7");

    enter("TXT_ZorbusID", "0x4D55"); // mute
    driver.Click("BTN_Read");
    closeBox("Unable to connect or verify communications to device Cendra on SerialZorbus", "Return");
    driver.Menu("SerialPortSettings");
    driver.WaitShown("SerialSettings");
    for (const char* key : {"Down", "Down", "Return"}) // COM 3, where nothing is attached
        driver.Key(key);
    closeBox("Unable to communicate to hardware.", "Return");
    EXPECT_EQ(driver.Text("StatusBar1/Message"), "Failed to verify communication to COM 3");
    driver.WaitShown("SerialSettings");
    driver.Key("Escape");
    driver.Menu("Quit");
    closeBox("before closing", "Escape");
    EXPECT_EQ(driver.ExitCode(), 0);
    EXPECT_NE(folder.Read("home/.config/tarvex/tarvex.ini").find("COM_Port=3"), std::string::npos);
}

/// The main window on the demo board, with the first product of the shipped init file.
class MainWindowRun : public ProgramTest {
protected:
    MainWindowRun() : driver(With({"-demo"}))
    {
        driver.WaitShown("AdvancedForm");
        driver.Menu("ProductMenu_0");
        driver.WaitText("UI_RegisterItem_0/NameLabel", "Scratch");
    }

    std::string Value() { return driver.Text("UI_RegisterItem_0/txtInput"); }

    void ReadAll()
    {
        driver.Click("BTN_Read");
        driver.WaitText("StatusBar1/Message", "read");
    }

    ProgramDriver driver;
};

TEST_F(MainWindowRun, WhatIsLoadedIntoTheBoardIsReadBack)
{
    ReadAll();
    driver.Click("UI_RegisterItem_0/txtInput");
    driver.Key("Ctrl+A");
    driver.Type("5a");
    driver.Click("UI_RegisterItem_0/Bit_0");
    EXPECT_EQ(Value(), "5B");
    driver.Click("BTN_Load");
    driver.WaitText("StatusBar1/Message", "written");
    ReadAll();
    EXPECT_EQ(Value(), "5B");
}

TEST_F(MainWindowRun, AskedToEndBySystemItLeavesNoWorkingCopy)
{
    EXPECT_GT(WorkingCopies(), 0);
    driver.Terminate();
    driver.ExitCode();
    EXPECT_EQ(WorkingCopies(), 0);
}

TEST_F(MainWindowRun, TheCloseBoxEndsTheProgramWith0)
{
    driver.Send({"close", "AdvancedForm"});
    EXPECT_EQ(driver.ExitCode(), 0);
}

}
}

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
    for (const char* display : {"", ":4711"}) { // none is named, or none answers
        ProgramStart start = With({});
        start.environment = {{"QT_QPA_PLATFORM", ""}, {"DISPLAY", display}};
        ProgramDriver driver(start);
        EXPECT_EQ(driver.ExitCode(), 8) << display;
        EXPECT_NE(driver.ErrorOutput().find("display"), std::string::npos);
    }
}

TEST_F(ProgramTest, AnUnusableInitFileIsLoggedAndEndsWith2)
{
    ProgramDriver driver(Copied({}, "<SignalTarvex version=\"2.3.9\"><VID>12C5</VID></SignalTarvex>"));
    EXPECT_EQ(driver.ExitCode(), 2);
    EXPECT_NE(folder.Read("TarvexError.log").find(" raised from "), std::string::npos);
    EXPECT_FALSE(driver.ErrorOutput().empty());
    EXPECT_EQ(WorkingCopies(), 0);
}

/// A new user at the shipped network of enclosures.
class EnclosureRun : public ProgramTest {
protected:
    EnclosureRun() : driver(With({})) { driver.WaitShown("AdvancedForm"); }

    void Enter(const std::string& box, const std::string& text)
    {
        driver.Click(box);
        driver.Key("Ctrl+A");
        driver.Type(text);
    }
    void CloseBox(const std::string& text, const char* key)
    {
        driver.WaitText("MessageBox", text);
        driver.Key(key);
    }
    void Click(const std::string& button, const std::string& status)
    {
        driver.Click(button);
        driver.WaitText("StatusBar1/Message", status);
    }
    void ChooseSettings(std::initializer_list<const char*> keys)
    {
        driver.WaitShown("SerialSettings");
        for (const char* key : keys)
            driver.Key(key);
        driver.Key("Return");
    }
    void FailOn(const std::string& port)
    {
        CloseBox("Unable to communicate to hardware.", "Return");
        EXPECT_EQ(driver.Text("StatusBar1/Message"), "Failed to verify communication to COM " + port);
    }

    ProgramDriver driver;
};

TEST_F(EnclosureRun, AnEnclosureIsReachedByItsAddressAndSettingsAreKept)
{
    driver.Menu("ProductMenu_5");
    CloseBox("Enter the address of the enclosure", "Return");
    Enter("TXT_ZorbusID", "0x1A2B");
    Enter("TXT_ChannelNum", "3");
    Click("BTN_Read", "5 registers read, none failed.");
    Enter("UI_RegisterItem_1/txtInput", "7");
    Click("BTN_Load", "1 register written, none failed.");
    Enter("UI_RegisterItem_1/txtInput", "5");
    Click("BTN_Read", "5 registers read, none failed.");
    EXPECT_EQ(driver.Text("UI_RegisterItem_1/txtInput"), "7");

    Enter("TXT_ZorbusID", "0x4D55"); // mute
    driver.Click("BTN_Read");
    driver.WaitShown("DeviceBrowseDialog"); // of those that answer
    driver.Key("Escape");
    CloseBox("Unable to connect or verify communications to device Cendra on SerialZorbus", "Return");
    driver.Menu("SerialPortSettings");
    ChooseSettings({"Down", "Down"}); // where nothing is attached
    FailOn("3");
    driver.WaitShown("SerialSettings");
    driver.Key("Escape");
    driver.Menu("Quit");
    CloseBox("before closing", "Escape");
    EXPECT_EQ(driver.ExitCode(), 0);
    EXPECT_NE(folder.Read("home/.config/tarvex/tarvex.ini").find("COM_Port=3"), std::string::npos);
}

TEST_F(EnclosureRun, SettingsAreChangedUntilTheEnclosureAnswers)
{
    driver.Menu("ProductMenu_6");
    CloseBox("Enter the address of the enclosure", "Return");
    Enter("TXT_ZorbusID", "0x1C01");
    Enter("TXT_ChannelNum", "3");
    driver.Click("BTN_Read");
    driver.WaitShown("DeviceBrowseDialog"); // of those that answer
    driver.Key("Escape");
    CloseBox("Unable to connect or verify communications to device Ossary on SerialZorbus", "Return");
    driver.Menu("SerialPortSettings");
    ChooseSettings({"Down", "Down", "Down"}); // busy
    FailOn("4");
    ChooseSettings({"Down"}); // too slow for it
    FailOn("5");
    ChooseSettings({"Tab", "Down", "Down"});
    driver.WaitText("StatusBar1/Message", "Communication verified on COM 5");
    driver.WaitIdle();
    Click("BTN_Read", "registers read, none failed.");
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

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

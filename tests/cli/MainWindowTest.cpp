#include "cli/ProgramTest.h"

namespace tarvex {

namespace {

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

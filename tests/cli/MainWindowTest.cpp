#include "cli/ProgramTest.h"

namespace tarvex {

namespace {

/// The main window on the demo board, with the first product of the shipped init file.
class MainWindowRun : public ProgramTest {
protected:
    ProgramDriver& Driver()
    {
        if (!driver_) {
            driver_ = std::make_unique<ProgramDriver>(With({"-demo"}));
            driver_->WaitShown("AdvancedForm");
            driver_->Menu("ProductMenu_0");
            driver_->WaitText("UI_RegisterItem_0/NameLabel", "Scratch");
        }
        return *driver_;
    }

    std::string Value() { return Driver().Text("UI_RegisterItem_0/txtInput"); }

    void ReadAll()
    {
        Driver().Click("BTN_Read");
        Driver().WaitText("StatusBar1/Message", "read");
    }

private:
    std::unique_ptr<ProgramDriver> driver_;
};

TEST_F(MainWindowRun, WhatIsLoadedIntoTheBoardIsReadBack)
{
    ReadAll();
    Driver().Click("UI_RegisterItem_0/txtInput");
    Driver().Key("Ctrl+A");
    Driver().Type("5a");
    Driver().Click("UI_RegisterItem_0/Bit_0");
    EXPECT_EQ(Value(), "5B");
    Driver().Click("BTN_Load");
    Driver().WaitText("StatusBar1/Message", "written");
    ReadAll();
    EXPECT_EQ(Value(), "5B");
}

TEST_F(MainWindowRun, AskedToEndBySystemItLeavesNoWorkingCopy)
{
    Driver();
    EXPECT_GT(WorkingCopies(), 0);
    Driver().Terminate();
    Driver().ExitCode();
    EXPECT_EQ(WorkingCopies(), 0);
}

TEST_F(MainWindowRun, TheCloseBoxEndsTheProgramWith0)
{
    Driver().Send({"close", "AdvancedForm"});
    EXPECT_EQ(Driver().ExitCode(), 0);
}

}

}

#include "cli/ProgramTest.h"

#include <stdexcept>

namespace tarvex {
namespace {

/// A wizard of the built program on the demo board, whose registers all hold 1 at first.
class WizardRun : public ProgramTest {
protected:
    void Answer(ProgramDriver& driver, const std::string& text, const std::string& key)
    {
        driver.WaitText("MessageBox", text);
        driver.Key(key);
    }
};

TEST_F(WizardRun, AdjustsTheVexlonBoardBesideTheRegisterWindow)
{
    ProgramDriver driver(With({"-wVexlon", "-demo"}));
    driver.WaitText("Vexlon_Wizard", "Vexlon Wizard");
    EXPECT_THROW(driver.Text("AdvancedForm"), std::runtime_error); // not shown
    driver.Item("ListView1/Red Gain");
    driver.WaitText("Label1", "Red Gain");
    EXPECT_EQ(driver.Text("StatusText"), "253");
    for (const char* key : {"Tab", "Left", "PgDown"})
        driver.Key(key);
    driver.WaitText("StatusText", "227");
    driver.Menu("Vexlon_Wizard/Undo");
    driver.WaitText("StatusText", "252");

    driver.Menu("AdvancedView");
    driver.WaitText("UI_RegisterItem_1/NameLabel", "Red Gain");
    EXPECT_EQ(driver.Text("UI_RegisterItem_1/txtInput"), "2");
    EXPECT_EQ(driver.Text("UI_RegisterItem_2/txtInput"), "1"); // as the wizard has read it
    driver.Click("UI_RegisterItem_1/txtInput");
    driver.Key("Ctrl+A");
    driver.Type("5");
    driver.Key("Return");
    driver.WaitText("StatusText", "249");

    driver.Menu("Vexlon_Wizard/Quit");
    Answer(driver, "Save  file before closing", "Escape"); // for the wizard,
    Answer(driver, "Save  file before closing", "Escape"); // and for the register window
    EXPECT_EQ(driver.ExitCode(), 0);
    EXPECT_EQ(WorkingCopies(), 0);
}

TEST_F(WizardRun, GoesFromChannelToChannelOfAFiberBoard)
{
    ProgramDriver driver(With({"-wvexlon-fx", "-demo"}));
    driver.WaitText("Vexlon_Wizard", "Vexlon-Fx Wizard");
    driver.WaitText("StatusBar1/Message", "Success connecting and retrieving data.");
    EXPECT_EQ(driver.Text("StatusBar1/Resolution"), " ");
    driver.Item("TreeView1/Vexlon-Fx");
    Answer(driver, "Please select a Leaf node in the tree.", "Return");
    driver.Menu("AdvancedView");
    driver.WaitShown("AdvancedForm");
    driver.Item("TreeView1/Vexlon-Fx Channel 2");
    driver.WaitText("StatusBar1/Resolution", "257x257");
    EXPECT_EQ(driver.Text("UI_RegisterItem_1/txtInput"), "1"); // the channel's, not the init file's
    driver.Item("ListView1/Height");
    driver.WaitText("StatusText", "257");
    driver.Menu("Resolution0_2");
    Answer(driver, "Use a default refresh rate of 60Hz?", "Return");
    driver.WaitText("StatusBar1/Refresh", "60Hz");
    EXPECT_EQ(driver.Text("StatusBar1/Resolution"), "1024x768"); // a box is no other view
    EXPECT_EQ(driver.Text("StatusText"), "768");                 // the height has changed with it
    driver.Send({"close", "Vexlon_Wizard"});
    Answer(driver, "Save  file before closing", "Escape");
    EXPECT_EQ(driver.ExitCode(), 0);
}

}
}

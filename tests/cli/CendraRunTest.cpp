#include "cli/ProgramTest.h"

namespace tarvex {
namespace {

/// A new user at the second enclosure of the shipped network.
TEST_F(ProgramTest, AnEnclosureKeepsWhatWasSavedInIt)
{
    const auto answer = [](ProgramDriver& driver, const std::string& text, const std::string& key) {
        driver.WaitText("MessageBox", text);
        driver.Key(key);
    };
    const auto start = [](ProgramDriver& driver) {
        driver.WaitShown("DeviceBrowseDialog");
        for (const char* key : {"Down", "Return"})
            driver.Key(key);
        driver.WaitText("Cendra_Wizard", "Cendra Wizard");
        driver.Item("TreeView1/Source 7");
        driver.Item("ListView1/Blue_Skew");
        driver.WaitText("Label1", "Blue_Skew");
    };
    {
        ProgramDriver driver(With({"-wCendra"}));
        start(driver);
        EXPECT_EQ(driver.Text("StatusText"), "0 ns");
        for (const char* key : {"Tab", "Up"})
            driver.Key(key);
        driver.WaitText("StatusText", "2 ns");
        driver.Menu("SyncToFlash");
        answer(driver, "Success saving settings.", "Return");
        driver.Menu("AdvancedView");
        driver.WaitShown("AdvancedForm");
        driver.Click("BTN_Read"); // of the same connector, without a question where that is
        driver.WaitText("AdvancedForm/Message", "5 registers read, none failed.");
        EXPECT_EQ(driver.Text("UI_RegisterItem_2/txtInput"), "1");
        driver.Send({"close", "AdvancedForm"});
        driver.Menu("Cendra_Wizard/Quit");
        answer(driver, "Save  file before closing?", "Escape");
        EXPECT_EQ(driver.ExitCode(), 0);
    }
    ProgramDriver driver(With({"-wCendra"}));
    start(driver);
    EXPECT_EQ(driver.Text("StatusText"), "2 ns");
    driver.Send({"close", "Cendra_Wizard"});
    EXPECT_EQ(driver.ExitCode(), 0);
}

TEST_F(ProgramTest, GivingTheSearchForAnEnclosureUpEndsTheProgramWith7)
{
    ProgramDriver driver(With({"-wOssary"}));
    driver.WaitShown("DeviceBrowseDialog");
    driver.Key("Escape");
    driver.WaitShown("NoCommHelp");
    driver.Key("Escape");
    driver.WaitText("MessageBox", "Unable to establish communication on SerialZorbus");
    driver.Key("Escape");
    EXPECT_EQ(driver.ExitCode(), 7);
}

}
}

#include "cli/ProgramTest.h"

namespace tarvex {
namespace {

/// A new user at the analog transmitter of the shipped network.
TEST_F(ProgramTest, TheTransmitterKeepsWhatWasSavedInIt)
{
    const auto start = [](ProgramDriver& driver) {
        driver.WaitText("AnalogTx_Wizard", "Ossary-Plus Wizard");
        driver.Item("ListView1/Green_Skew");
        driver.WaitText("Label1", "Green_Skew");
    };
    const auto answer = [](ProgramDriver& driver, const std::string& text, const std::string& key) {
        driver.WaitText("MessageBox", text);
        driver.Key(key);
    };
    {
        ProgramDriver driver(With({"-wOssary_Plus"}));
        start(driver);
        EXPECT_EQ(driver.Text("StatusText"), "0 ns");
        for (const char* key : {"Tab", "Up"})
            driver.Key(key);
        driver.WaitText("StatusText", "2 ns");
        driver.Menu("SyncToFlash");
        answer(driver, "Success saving settings.", "Return");
        driver.Key("PgUp");
        driver.WaitText("StatusText", "8 ns");
        driver.Menu("AnalogTx_Wizard/Quit");
        answer(driver, "Save  file before closing", "Escape");
        EXPECT_EQ(driver.ExitCode(), 0);
    }
    ProgramDriver driver(With({"-wOssary_Plus"}));
    start(driver);
    EXPECT_EQ(driver.Text("StatusText"), "2 ns");
    driver.Menu("Enable_DisableCOM");
    driver.Menu("AnalogTx_Wizard/SerialPortSettings");
    driver.WaitShown("SerialSettings");
    for (const char* key : {"Down", "Down", "Return"}) // COM 3, where nothing is attached
        driver.Key(key);
    answer(driver, "Unable to communicate to hardware.", "Escape");
    driver.WaitText("StatusText", "Communication Failure");
    driver.Send({"close", "AnalogTx_Wizard"});
    EXPECT_EQ(driver.ExitCode(), 0);
    EXPECT_EQ(WorkingCopies(), 0);
}

}
}

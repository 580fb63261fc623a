#include "cli/ProgramTest.h"

namespace tarvex {
namespace {

/// A new user at the analog transmitter of the shipped network: what was saved in it is there in the next run.
TEST_F(ProgramTest, TheTransmitterKeepsWhatWasSavedInIt)
{
    for (const char* before : {"0 ns", "2 ns"}) {
        ProgramDriver driver(With({"-wOssary_Plus"}));
        const auto answer = [&](const std::string& text, const char* key) {
            driver.WaitText("MessageBox", text);
            driver.Key(key);
        };
        driver.WaitText("AnalogTx_Wizard", "Ossary-Plus Wizard");
        driver.Item("ListView1/Green_Skew");
        driver.WaitText("StatusText", before);
        for (const char* key : {"Tab", "Home", "Up"})
            driver.Key(key);
        driver.WaitText("StatusText", "2 ns");
        driver.Menu("SyncToFlash");
        answer("Success saving settings.", "Return");
        driver.Menu("Enable_DisableCOM");
        driver.Menu("AnalogTx_Wizard/SerialPortSettings");
        driver.WaitShown("SerialSettings");
        driver.Key("Return"); // connects again, with the same settings
        driver.WaitText("StatusText", "2 ns");
        driver.Key("PgUp");
        driver.WaitText("StatusText", "8 ns");
        driver.Menu("AnalogTx_Wizard/Quit");
        answer("Save  file before closing", "Escape");
        EXPECT_EQ(driver.ExitCode(), 0);
    }
}

}
}

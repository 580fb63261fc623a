#include "cli/ProgramTest.h"

namespace tarvex {
namespace {

TEST_F(ProgramTest, TestsItselfAndEndsWith0ByButtonAndFrame)
{
    const std::vector<std::string> ends[] = {{"click", "Close"}, {"close", "UT_Output"}};
    for (const auto& end : ends) {
        ProgramDriver driver(With({"-ZB_unit_test"}));
        driver.WaitShown("BTN_OpenFile");
        const std::string report = driver.Send({"lines", "LST_Output"});
        EXPECT_TRUE(report.ends_with("| |Unit Test Complete, no failures")) << report;
        driver.Send(end);
        EXPECT_EQ(driver.ExitCode(), 0);
        EXPECT_TRUE(folder.Read("c-drive/Tarvex_UT.txt").starts_with(folder.File("c-drive/Tarvex_UT.txt") + " 20"));
        EXPECT_FALSE(std::filesystem::exists(folder.File("c-drive/UT_Failures.txt")));
        EXPECT_EQ(WorkingCopies(), 0);
    }
}

}
}

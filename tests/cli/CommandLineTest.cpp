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

TEST_F(ProgramTest, AMissingInitFileIsSearchedForOrEndsWith2)
{
    ProgramDriver driver(Copied({}));
    driver.WaitText("MessageBox", "Unable to find the initialization file Tarvex.xml in ");
    driver.Key("Alt+N");
    EXPECT_EQ(driver.ExitCode(), 2);
}

TEST_F(ProgramTest, AnUnusableInitFileIsLoggedAndEndsWith2)
{
    ProgramDriver driver(Copied({}, "<SignalTarvex version=\"2.3.9\"><VID>12C5</VID></SignalTarvex>"));
    EXPECT_EQ(driver.ExitCode(), 2);
    EXPECT_NE(folder.Read("TarvexError.log").find(" raised from "), std::string::npos);
    EXPECT_FALSE(driver.ErrorOutput().empty());
    EXPECT_EQ(WorkingCopies(), 0);
}

}

}

#include "cli/ProgramTest.h"

namespace tarvex {

namespace {

TEST_F(ProgramTest, HelpShowsTheUsageAndEndsWith0)
{
    ProgramDriver driver(With({"-H"}));
    driver.WaitShown("MessageBox");
    EXPECT_NE(driver.Text("MessageBox").find("-zb_unit_test  run the unit tests and close"), std::string::npos);
    driver.Key("Return");
    EXPECT_EQ(driver.ExitCode(), 0);
}

TEST_F(ProgramTest, AnUnknownSwitchIsToldAndEndsWith1)
{
    ProgramDriver driver(With({"-demo", "-Bogus"}));
    driver.WaitShown("MessageBox");
    EXPECT_EQ(driver.Text("MessageBox"), "Unrecognized command line parameter: bogus");
    driver.Key("Return");
    EXPECT_EQ(driver.ExitCode(), 1);
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
    driver.WaitShown("MessageBox");
    EXPECT_TRUE(driver.Text("MessageBox").starts_with("Unable to find the initialization file Tarvex.xml in "));
    driver.Key("Alt+N");
    EXPECT_EQ(driver.ExitCode(), 2);
}

TEST_F(ProgramTest, AnUnusableInitFileIsLoggedAndEndsWith2)
{
    for (const char* text : {"no document", "<SignalTarvex version=\"2.5.0\"><VID>FFFF</VID></SignalTarvex>",
                             "<SignalTarvex version=\"2.3.9\"><VID>12C5</VID></SignalTarvex>"}) {
        folder.Write("TarvexError.log", {});
        ProgramDriver driver(Copied({}, text));
        EXPECT_EQ(driver.ExitCode(), 2) << text;
        EXPECT_NE(folder.Read("TarvexError.log").find(" raised from "), std::string::npos) << text;
        EXPECT_FALSE(driver.ErrorOutput().empty()) << text;
    }
    EXPECT_EQ(WorkingCopies(), 0);
}

}

}

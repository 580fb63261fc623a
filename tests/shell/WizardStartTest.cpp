#include "shell/DocumentFixture.h"

namespace tarvex {

namespace {

struct Start {
    const char* commandLine;
    const char* minInitVersion;
    const char* window;
    const char* caption;
    const char* deviceName;
    const char* link;
    const char* boardProduct;
    const char* product;
};

constexpr Start kStarts[] = {
    {"-wvexlon-fx", "2.0.0", "Vexlon_Wizard", "Vexlon-Fx Wizard", "Vexlon-Fx_Channel1", "USB-HID Device", "no product",
     "Vexlon-Fx"},
    {"-wossary_plus", "2.5.0", "AnalogTx_Wizard", "Ossary-Plus Wizard", "Ossary-Plus", "SerialZorbus", "no product",
     "Ossary-Plus"},
    {"-wCendra", "2.4.0", "Cendra_Wizard", "Cendra Wizard", "Cendra", "SerialZorbus", "Cendra", "Cendra"},
    {"-wOSSARY", "2.4.10", "Cendra_Wizard", "Ossary Wizard", "Ossary", "SerialZorbus", "Ossary", "Ossary"},
};

/// The whole start in its order, as all fakes together write it down.
Lines ExpectedJournal(const Start& start)
{
    const std::string window = std::string(start.window) + ": ";
    const std::string link = std::string(start.link) + ": ";
    Lines lines = {"Demo device: made", "main: Init Demo device", window + "made",
                   window + "SetCaption " + start.caption};
    if (start.product == std::string("Ossary-Plus"))
        lines.push_back("main: SetPrefAutoConnect yes");
    lines.insert(lines.end(),
                 {link + "made", "Demo device: Disconnect", "Demo device: gone",
                  std::string("controller: ") + start.deviceName + " with minimum " + start.minInitVersion});
    if (start.link == std::string("USB-HID Device"))
        lines.push_back(link + "connect A51 12C5");
    lines.insert(lines.end(), {window + "Init " + start.deviceName + ", " + start.link + ", " + start.boardProduct,
                               window + "SetCurrentProduct " + start.product, window + "ShowView"});
    return lines;
}

class WizardStartTest : public DocumentTest {
protected:
    /// The start ends with code 7 and one entry, and nothing was shown.
    void ExpectFailure(const std::string& commandLine, const std::string& reason)
    {
        EXPECT_EQ(Run(commandLine), 7) << commandLine;
        ASSERT_EQ(errors_.entries.size(), 1U) << commandLine;
        EXPECT_EQ(errors_.entries[0].description, reason);
        errors_.entries.clear();
        const Lines journal = TakeJournal();
        for (const std::string& line : journal)
            EXPECT_EQ(line.find("ShowView"), std::string::npos) << line;
    }
};

}

TEST_F(WizardStartTest, FollowsItsOrderForEveryProduct)
{
    for (const Start& start : kStarts) {
        SCOPED_TRACE(start.commandLine);
        EXPECT_EQ(Run(start.commandLine), std::nullopt);
        EXPECT_EQ(TakeJournal(), ExpectedJournal(start));
        document_.reset();
        TakeJournal();
    }
}

TEST_F(WizardStartTest, IsNotStoppedByABoardThatDoesNotAnswer)
{
    linksAnswer_ = false;
    EXPECT_EQ(Run("-wVexlon"), std::nullopt);
    EXPECT_EQ(TakeJournal().back(), "Vexlon_Wizard: ShowView");
    EXPECT_TRUE(errors_.entries.empty());
}

TEST_F(WizardStartTest, EndsTheProgramWhenItFails)
{
    ExpectFailure("-wNothing", "There is no wizard for the product NOTHING");
    script_.initResult = false;
    ExpectFailure("-wCendra", "Unable to initialize the wizard of the product Cendra");
    script_.duringInit = [] { Raise(1003, "Cendra_Wizard::Init", "unexpected"); };
    ExpectFailure("-wCendra", "unexpected");
    files_.files["/prog/Tarvex.xml"] = InitFileText({"Cendra"});
    ExpectFailure("-wVexlon-Fx", "Unable to initialize product Vexlon-Fx_Channel1");
    services_.wizards.clear();
    ExpectFailure("-wCendra", "There is no wizard for the product CENDRA");
}

TEST_F(WizardStartTest, PassesOnAnExitThatTheWizardAsksFor)
{
    script_.duringInit = [] { ExitApplication(9); };
    EXPECT_EQ(Run("-wCendra"), 9);
    EXPECT_TRUE(errors_.entries.empty());
}

}

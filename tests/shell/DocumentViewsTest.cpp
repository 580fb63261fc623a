#include "shell/DocumentFixture.h"

namespace tarvex {

namespace {

using DocumentViews = DocumentTest;

struct Start {
    const char* commandLine;
    const char* minInitVersion;
    const char* caption; // and the window that has it
    const char* binding;
};

constexpr Start kStarts[] = {
    {"-wvexlon-fx", "2.0.0", "Vexlon_Wizard: SetCaption Vexlon-Fx Wizard",
     "Vexlon_Wizard: Init Vexlon-Fx_Channel1, USB-HID Device, no product"},
    {"-wossary_plus", "2.5.0", "AnalogTx_Wizard: SetCaption Ossary-Plus Wizard",
     "AnalogTx_Wizard: Init Ossary-Plus, SerialZorbus, no product"},
    {"-wCendra", "2.4.0", "Cendra_Wizard: SetCaption Cendra Wizard",
     "Cendra_Wizard: Init Cendra, SerialZorbus, Cendra"},
    {"-wOSSARY", "2.4.10", "Cendra_Wizard: SetCaption Ossary Wizard",
     "Cendra_Wizard: Init Ossary, SerialZorbus, Ossary"},
};

}

TEST_F(DocumentViews, StartWithTheWizardOfEveryProduct)
{
    for (const Start& start : kStarts) {
        SCOPED_TRACE(start.commandLine);
        std::string minimum;
        script_.duringInit = [&] { minimum = state_.g_minInitVersion; };
        EXPECT_EQ(Run(start.commandLine), std::nullopt);
        const Lines journal = TakeJournal();
        EXPECT_EQ(std::count(journal.begin(), journal.end(), start.caption), 1);
        EXPECT_EQ(std::count(journal.begin(), journal.end(), start.binding), 1);
        EXPECT_TRUE(journal.back().ends_with(": ShowView"));
        EXPECT_EQ(minimum, start.minInitVersion);
    }
}

TEST_F(DocumentViews, EndTheProgramWhenTheWizardFails)
{
    const auto expectFailure = [this](const char* commandLine, const char* reason) {
        EXPECT_EQ(Run(commandLine), 7);
        EXPECT_EQ(errors_.entries.back().description, reason);
        for (const std::string& line : TakeJournal())
            EXPECT_EQ(line.find("ShowView"), std::string::npos) << line;
    };
    expectFailure("-wNothing", "There is no wizard for the product NOTHING");
    script_.initResult = false;
    expectFailure("-wCendra", "Unable to initialize the wizard of the product Cendra");
    script_.duringInit = [] { Raise(1003, "Cendra_Wizard::Init", "unexpected"); };
    expectFailure("-wCendra", "unexpected");
    script_.duringInit = [] { ExitApplication(9); };
    EXPECT_EQ(Run("-wCendra"), 9);
    files_.files["/prog/Tarvex.xml"] = InitFileText({"Cendra"});
    expectFailure("-wVexlon-Fx", "Unable to initialize product Vexlon-Fx_Channel1");
}

TEST_F(DocumentViews, TellTheOthersOfChangesAndFailures)
{
    Run("-wVexlon");
    TakeJournal();
    document_->UpdateAllViews(document_->CurrentWizForm(), kRegisterChanged, "PLL");
    document_->UpdateAllViews(nullptr, kPropertyChanged, "Phase");
    document_->NotifyCommFailure("gone");
    EXPECT_EQ(TakeJournal(), (Lines{"main: UpdateUI 1 PLL", "Vexlon_Wizard: UpdateUI 2 Phase", "main: CommFailure gone",
                                    "Vexlon_Wizard: CommFailure gone"}));
    EXPECT_EQ(errors_.entries.at(0).description, "gone");
    document_.reset();
    EXPECT_EQ(TakeJournal(), (Lines{"Vexlon_Wizard: Unload", "Vexlon_Wizard: gone", "USB-HID Device: Disconnect",
                                    "USB-HID Device: gone"}));
}

TEST_F(DocumentViews, KeepNoWizardThatCouldNotBeBound)
{
    Run("");
    script_.initResult = false;
    EXPECT_FALSE(document_->OpenView("Vexlon", nullptr));
    EXPECT_EQ(TakeJournal().back(), "Vexlon_Wizard: Unload");
    script_.duringInit = [] { RaiseRuntime(kErrOverflow, "Wizard::Init"); };
    EXPECT_THROW(document_->OpenView("Vexlon", nullptr), Error);
    EXPECT_FALSE(document_->IsWizardOpen());
}

TEST_F(DocumentViews, RefuseToSaveOverTheInitFileUnderAnySpelling)
{
    Run("");
    files_.links = {{"/link to prog", "/prog"}, {"/home/alias.xml", "/prog/Tarvex.xml"}};
    for (const char* path :
         {"/PROG/TARVEX.XML", "/prog/./sub/../tarvex.xml", "/home/alias.xml", "/link to prog/TARVEX.xml"})
        EXPECT_FALSE(document_->TestForApplicationReservedFilepath(path)) << path;
    for (const char* path : {"/prog/Tarvex2.xml", "/home/Tarvex.xml", "/link to prog/board.xml", ""})
        EXPECT_TRUE(document_->TestForApplicationReservedFilepath(path)) << path;
}

}

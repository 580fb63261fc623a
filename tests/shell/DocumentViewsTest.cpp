#include "shell/DocumentFixture.h"

namespace tarvex {

namespace {

/// A file system with one link to a folder and another spelling of the init file.
class LinkedFiles : public FakeFileSystem {
public:
    bool IsSameFile(const std::string& left, const std::string& right) override
    {
        return Resolve(left) == Resolve(right);
    }

private:
    static std::string Resolve(const std::string& path)
    {
        if (path == "/link to prog")
            return "/prog";
        return path == "/home/alias.xml" ? "/prog/Tarvex.xml" : path;
    }
};

class DocumentViews : public DocumentTest {
protected:
    void Start(const std::string& commandLine)
    {
        ASSERT_EQ(Run(commandLine), std::nullopt);
        TakeJournal();
    }
};

}

TEST_F(DocumentViews, TellTheOthersOfChangesAndFailures)
{
    Start("-wVexlon");
    document_->UpdateAllViews(document_->CurrentWizForm(), kRegisterChanged, "PLL");
    EXPECT_EQ(TakeJournal(), Lines{"main: UpdateUI 1 PLL"});
    document_->UpdateAllViews(nullptr, kPropertyChanged, "Phase");
    EXPECT_EQ(TakeJournal(), Lines{"Vexlon_Wizard: UpdateUI 2 Phase"});
    document_->NotifyCommFailure("gone");
    EXPECT_EQ(TakeJournal(), (Lines{"main: CommFailure gone", "Vexlon_Wizard: CommFailure gone"}));
    EXPECT_EQ(errors_.entries.at(0).description, "gone");
}

TEST_F(DocumentViews, OpenTheMainWindowBesideAWizardOnly)
{
    Start("-wCendra");
    script_.viewName = "Cendra Wizard";
    EXPECT_FALSE(document_->OpenView("AdvancedForm", nullptr));
    EXPECT_TRUE(document_->OpenView("AdvancedForm", document_->CurrentWizForm()));
    EXPECT_EQ(TakeJournal(), (Lines{"main: LockRealTime", "main: SetAsSecondaryView yes", "main: DisplayStatusMessage ",
                                    "main: ShowView", "main: UpdateUI 0 ", "main: FocusView"}));
    for (const char* product : {"Ossary", "Scaler", "Nothing", "vexlon", ""})
        EXPECT_FALSE(document_->OpenView(product, nullptr)) << product;
    EXPECT_EQ(TakeJournal(), Lines());
}

TEST_F(DocumentViews, OpenAVexlonWizardAndThenTheSameAgain)
{
    Start("");
    document_->SelectCommLink("USB-HID Device");
    TakeJournal();
    EXPECT_TRUE(document_->OpenView("Kestra-Fx", nullptr));
    EXPECT_EQ(TakeJournal(),
              (Lines{"Vexlon_Wizard: made", "controller: Kestra-Fx with minimum 2.4.0",
                     "USB-HID Device: connect A51 12C5", "Vexlon_Wizard: Init Kestra-Fx, USB-HID Device, no product",
                     "Vexlon_Wizard: SetCurrentProduct Kestra-Fx", "Vexlon_Wizard: ShowView"}));
    EXPECT_TRUE(document_->OpenView("my vexlon-fx", nullptr));
    EXPECT_EQ(TakeJournal(), (Lines{"Vexlon_Wizard: ShowView", "Vexlon_Wizard: FocusView"}));
}

TEST_F(DocumentViews, KeepNoWizardThatCouldNotBeBound)
{
    Start("");
    script_.initResult = false;
    EXPECT_FALSE(document_->OpenView("Vexlon", nullptr));
    EXPECT_EQ(TakeJournal().back(), "Vexlon_Wizard: Unload");
    script_.duringInit = [] { RaiseRuntime(kErrOverflow, "Wizard::Init"); };
    EXPECT_THROW(document_->OpenView("Vexlon", nullptr), Error);
    EXPECT_FALSE(document_->IsWizardOpen());
}

TEST_F(DocumentViews, ReplaceTheWizardInUseWithoutDestroyingItAtOnce)
{
    Start("-wCendra");
    IWizardView* const cendra = document_->CurrentWizForm();
    EXPECT_TRUE(document_->OpenView("Kestra-Fx", cendra));
    document_->CurrentWizForm(cendra);
    EXPECT_TRUE(document_->OpenView("Kestra-Fx", cendra));
    const Lines journal = TakeJournal();
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "Cendra_Wizard: Unload"), 1);
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "Cendra_Wizard: gone"), 0);
}

TEST_F(DocumentViews, CloseByProduct)
{
    Start("-wVexlon-Fx");
    document_->CloseView("AdvancedForm");
    EXPECT_EQ(TakeJournal(), Lines{"main: HideView"});
    script_.viewName = "Vexlon-Fx Wizard";
    document_->CloseView("Ossary");
    EXPECT_EQ(TakeJournal(), Lines{"Vexlon_Wizard: HideView"});
}

TEST_F(DocumentViews, AreUnloadedBeforeTheLinkEnds)
{
    Start("-wVexlon");
    document_.reset();
    EXPECT_EQ(TakeJournal(), (Lines{"Vexlon_Wizard: Unload", "Vexlon_Wizard: gone", "USB-HID Device: Disconnect",
                                    "USB-HID Device: gone"}));
}

TEST_F(DocumentViews, RefuseToSaveOverTheInitFileUnderAnySpelling)
{
    LinkedFiles files;
    files.files = files_.files;
    DocumentServices services{state_, files, errors_, packetLog_, prompts_, preferences_, {}, {}, {}, ""};
    Document document(services);
    for (const char* path :
         {"/PROG/TARVEX.XML", "/prog/./sub/../tarvex.xml", "/home/alias.xml", "/link to prog/TARVEX.xml"})
        EXPECT_FALSE(document.TestForApplicationReservedFilepath(path)) << path;
    for (const char* path : {"/prog/Tarvex2.xml", "/home/Tarvex.xml", "/link to prog/board.xml", ""})
        EXPECT_TRUE(document.TestForApplicationReservedFilepath(path)) << path;
}

}

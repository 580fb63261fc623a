#include "base/Version.h"
#include "shell/DocumentFixture.h"
#include "shell/Startup.h"
#include "support/FakeSettingsStore.h"

namespace tarvex {
namespace {

TEST_F(DocumentTest, StartEndsBeforeAnythingElseWhenALibraryIsMissingOrTooOld)
{
    const std::string noXml =
        "Stopping execution. Unable to load ChilkatXML ActiveX component.  Last error is: it broke. ";
    const std::string advice =
        " Inability to find a file/dll may indicate incorrect versions of dependent files/dll as well. Tarvex "
        "dependencies are listed in Tarvex_Versions.htm found in the installation folder or on the distribution CD.";
    const std::string help = "Try running the registerActiveX_<OS version>.bat in /prog/../Depends.. ";
    const std::tuple<std::string, std::int32_t, std::string> kCases[] = {
        {"5.0.0", 0, "Dependency check:  Found ChilkatXML 5.0.0, Require 5.0.1"},
        {"rubbish", 0, "Dependency check:  Found ChilkatXML rubbish, Require 5.0.1"},
        {"", 7, noXml + help},
        {"", kErrFileNotFound, noXml + advice + help}};
    FakeSettingsStore settings;
    for (const auto& [version, error, box] : kCases) {
        prompts_.ExpectMessage(box);
        const auto load = [&found = version, &number = error] {
            if (number != 0)
                Raise(number, "Loader", "it broke");
            return found;
        };
        Startup startup(services_, {load, {}}, settings, mainView_);
        EXPECT_EQ(ExitCodeOf([&] { startup.Run(); }), 8);
        EXPECT_EQ(TakeJournal(), Lines());
    }
}

using DocumentRun = DocumentTest;

TEST_F(DocumentRun, EndsAfterTheUsageBoxOrTheBoxOfAnUnknownSwitch)
{
    prompts_.ExpectMessage(
        "Usage: \r\n filename.xml  has to be first parameter\r\n"
        "-demo  run the app normally but without communicating with target board\r\n-help  display this screen\r\n"
        "-auto  batch mode. Open and load filename.xml and exit.\r\n"
        "-w<productName>  display the product wizard UI. (choices: Vexlon, Vexlon-Fx, Cendra, Ossary, or Ossary_Plus)"
        "\r\n-zb_unit_test  run the unit tests and close");
    EXPECT_EQ(Run("-h -auto"), 0);
    EXPECT_EQ(prompts_.messages.at(0).title, "tarvex " + AppVersionString());
    prompts_.ExpectMessage("Unrecognized command line parameter: x");
    EXPECT_EQ(Run("-x -help"), 1);
    EXPECT_EQ(TakeJournal(), Lines());
}

TEST_F(DocumentRun, RefusesABadInitFileWithoutABox)
{
    const std::pair<std::string, const char*> kBad[] = {
        {InitFileText({"Vexlon"}, "2.3.9"), "/prog/Tarvex.xml is below the minimum 2.4.0"},
        {InitFileText({"Vexlon"}, "2.5.0", "1234"), "does not match the VID"},
        {"<SignalTarvex version=\"2.5.0\">", "Failed to open"}};
    for (const auto& [content, reason] : kBad) {
        InitFile() = content;
        testing::internal::CaptureStderr();
        EXPECT_EQ(Run("-demo"), 2);
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
        EXPECT_NE(errors_.entries.back().description.find(reason), std::string::npos) << reason;
        document_.reset();
        EXPECT_FALSE(files_.FileExists("/tmp/Tarvex42.xml"));
    }
}

TEST_F(DocumentRun, DoesNotReadWhatStandsInPlaceOfItsCopy)
{
    files_.files["/tmp/Tarvex42.xml"] = files_.files["/prog/Tarvex.xml"];
    files_.failing = {FileOperation::CopyToWorkingFile};
    testing::internal::CaptureStderr();
    EXPECT_EQ(Run("-demo"), 2);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("Unable to copy"), std::string::npos);
}

TEST_F(DocumentRun, ShowsTheMainWindowOnTheDemoLink)
{
    files_.files["/tmp/Tarvex7.xml"] = InitFile(); // left behind by a process that is gone
    EXPECT_EQ(Run(""), std::nullopt);
    EXPECT_EQ(TakeJournal(), (Lines{"Demo device: made", "main: Init Demo device", "main: ShowView"}));
    EXPECT_EQ(state_.g_initFileInfo, "Init file version: 2.5.0 (/prog/Tarvex.xml)");
    EXPECT_EQ(document_->TargetSaveFileName(), "/tmp/Tarvex42_TempSave_.xml");
    EXPECT_TRUE(files_.FileExists("/tmp/Tarvex42.xml"));
    EXPECT_FALSE(files_.FileExists("/tmp/Tarvex7.xml"));

    document_.reset();
    EXPECT_EQ(TakeJournal(), (Lines{"Demo device: Disconnect", "Demo device: gone"}));
    EXPECT_EQ(files_.ListFolder("/tmp"), Lines());
    EXPECT_EQ(files_.files["/root/Tarvex_PacketLog_42.txt"],
              "Beginning packet log for Demo device, PID: 0x0, VID: 0x12C5 [2026-03-04 15:06:07]\n");
}

TEST_F(DocumentRun, ReplacesLinksByNameEvenWhenTheOldOneFailsToClose)
{
    Run("");
    TakeJournal();
    const std::pair<const char*, Lines> kLinks[] = {
        {"Carrier pigeon", {}},
        {"usb-hid device", {}},
        {"USB-HID Device", {"USB-HID Device: made", "Demo device: Disconnect", "Demo device: gone"}},
        {"USB-HID Device", {}},
        {"Ethernet", {"USB-HID Device: Disconnect", "USB-HID Device: gone"}},
        {"SerialZorbus", {"SerialZorbus: made"}}};
    for (const auto& [link, journal] : kLinks) {
        document_->SelectCommLink(link);
        EXPECT_EQ(TakeJournal(), journal) << link;
    }
    dynamic_cast<FakeLink&>(*document_->device()).failsToClose = true;
    document_->SelectCommLink("USB-HID Device");
    EXPECT_EQ(document_->device()->DeviceType(), "USB-HID Device");
    EXPECT_EQ(errors_.entries.at(0).description, "stuck");
}

using DocumentViews = DocumentTest;

TEST_F(DocumentViews, StartWithTheWizardOfEveryProduct)
{
    const std::array<std::string, 5> kStarts[] = {
        // the wizard, its caption and what it is bound to
        {"-wvexlon-fx", "2.0.0", "Vexlon_Wizard: ", "Vexlon-Fx", "Vexlon-Fx_Channel1, USB-HID Device, no product"},
        {"-wossary_plus", "2.5.0", "AnalogTx_Wizard: ", "Ossary-Plus", "Ossary-Plus, SerialZorbus, no product"},
        {"-wCendra", "2.4.0", "Cendra_Wizard: ", "Cendra", "Cendra, SerialZorbus, Cendra"},
        {"-wOSSARY", "2.4.10", "Cendra_Wizard: ", "Ossary", "Ossary, SerialZorbus, Ossary"},
    };
    for (const auto& [commandLine, minInitVersion, wizard, product, binding] : kStarts) {
        SCOPED_TRACE(commandLine);
        std::string minimum;
        script_.duringInit = [&] { minimum = state_.g_minInitVersion; };
        EXPECT_EQ(Run(commandLine), std::nullopt);
        const Lines journal = TakeJournal();
        for (const std::string& once : {wizard + "SetCaption " + product + " Wizard", wizard + "Init " + binding})
            EXPECT_EQ(std::count(journal.begin(), journal.end(), once), 1) << once;
        EXPECT_TRUE(journal.back().ends_with(": ShowView"));
        EXPECT_EQ(minimum, minInitVersion);
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
}

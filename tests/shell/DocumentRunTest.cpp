#include "shell/DocumentFixture.h"

#include "base/Version.h"

namespace tarvex {

namespace {

struct Ending {
    const char* commandLine;
    int code;
    std::size_t logEntries;
};

constexpr Ending kEndings[] = {
    {"-auto -x", 1, 0},
    {"-auto", 5, 0},
    {"board.xml -auto", 2, 0},
    {"-zb_unit_test", 7, 1},
};

struct BadInitFile {
    const char* name;
    std::string content;
    const char* reason; // part of what is logged
};

const BadInitFile kBadInitFiles[] = {
    {"too old", InitFileText({"Vexlon"}, "2.3.9"), "/prog/Tarvex.xml is below the minimum 2.4.0"},
    {"other vendor", InitFileText({"Vexlon"}, "2.5.0", "1234"), "does not match the VID"},
    {"broken", "<SignalTarvex version=\"2.5.0\">", "Failed to open"},
};

using DocumentRun = DocumentTest;

}

TEST_F(DocumentRun, EndsWithItsCodeAndNoBoxBeforeAnyLinkIsMade)
{
    for (const Ending& ending : kEndings) {
        SCOPED_TRACE(ending.commandLine);
        EXPECT_EQ(Run(ending.commandLine), ending.code);
        EXPECT_EQ(errors_.entries.size(), ending.logEntries);
        EXPECT_EQ(TakeJournal(), Lines());
    }
}

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
    for (const BadInitFile& bad : kBadInitFiles) {
        SCOPED_TRACE(bad.name);
        files_.files["/prog/Tarvex.xml"] = bad.content;
        testing::internal::CaptureStderr();
        EXPECT_EQ(Run("-demo"), 2);
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
        ASSERT_EQ(errors_.entries.size(), 1U);
        EXPECT_NE(errors_.entries[0].description.find(bad.reason), std::string::npos) << errors_.entries[0].description;
        errors_.entries.clear();
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
    files_.files["/tmp/Tarvex7.xml"] = "left behind by a process that is gone";
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

}

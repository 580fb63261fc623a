#include "shell/CommandLine.h"
#include "shell/InitFileSearch.h"
#include "shell/Preferences.h"
#include "support/ExitCode.h"
#include "support/FakeFileSystem.h"
#include "support/FakeSettingsStore.h"
#include "support/ScriptedPrompts.h"

namespace tarvex {
namespace {

using Reading = std::array<std::string, 4>; // the line, data file, wizard product, first letters of the flags set

std::string FlagsOf(const CommandLine& line)
{
    return std::string(line.help ? "h" : "") + (line.selfTest ? "s" : "") + (line.demo ? "d" : "") +
           (line.batch ? "b" : "");
}

const Reading kReadings[] = {
    {"", "", "", ""},
    {"-DEMO -Auto", "", "", "db"},
    {"-h -zb_unit_test", "", "", "hs"},
    {"My board.XML -demo", "My board.XML", "", "d"},
    {"a.xml -b.xml", "a.xml", "", ""},
    {"my-file.xml", "my-file.xml", "", ""},
    {"-wOssary_Plus -demo", "", "OSSARY-PLUS", "d"},
    {"-wVexlon-Fx", "", "VEXLON-FX", ""},
    {"new.xml", "", "EW.XML", ""},
    {"-auto  -demo", "", "", "db"},
    {"/d/backup.xml old/b.xml -demo", "/d/backup.xml old/b.xml", "", "d"},
    {"/home/w new - old/My.XML -demo", "/home/w new - old/My.XML", "", "d"}, // as a desktop names it
};

TEST(CommandLine, IsReadIntoItsFields)
{
    for (const Reading& expected : kReadings) {
        ScriptedPrompts prompts;
        const CommandLine line = ParseCommandLine(expected[0], prompts);
        EXPECT_EQ((Reading{expected[0], line.dataFile, line.wizardProduct, FlagsOf(line)}), expected);
    }
}

constexpr const char* kQuestion =
    "Unable to find the initialization file Tarvex.xml in /prog. Do you want to search for it?";

TEST(InitFileSearch, AsksAgainUntilAnInitFileIsChosenOrTheUserGivesUp)
{
    ProgramState state;
    state.programFolder = "/prog";
    FakeFileSystem files;
    files.files = {{"/other/My tarvex.xml", ""}, {"/other/Tarvex.hlp", ""}, {"/Tarvex.xml folder/notes.txt", ""}};
    ScriptedPrompts prompts;
    const auto find = [&] { return FindInitFile(state, files, prompts); };
    const auto expectSearch = [&](std::optional<std::string> chosen) {
        prompts.ExpectMessage(kQuestion, Answer::Yes);
        prompts.ExpectOpenFile(std::move(chosen));
    };
    expectSearch("/Tarvex.xml folder/notes.txt");
    prompts.ExpectMessage("Please locate Tarvex.xml.");
    expectSearch("/other/Tarvex.hlp");
    prompts.ExpectMessage(
        "Please locate Tarvex.xml. You must locate the init file before you can view the usage notes. If you want to "
        "see the Windows Help files, use Windows Explorer to launch Tarvex.hlp directly.");
    expectSearch("/nowhere/Tarvex.xml");
    expectSearch("/other/My tarvex.xml");
    EXPECT_EQ(find(), "/other/My tarvex.xml");

    prompts.ExpectMessage(kQuestion, Answer::No);
    EXPECT_EQ(ExitCodeOf(find), 2);
    EXPECT_EQ(prompts.messages.back().title, "Tarvex Init File Not Found");
    expectSearch(std::nullopt);
    prompts.ExpectMessage("User canceled search for initialization file.  Closing Tarvex.");
    EXPECT_EQ(ExitCodeOf(find), 2);
    files.files["/prog/tarvex.XML"] = "";
    EXPECT_EQ(find(), "/prog/tarvex.XML");
}

TEST(Preferences, AreSavedAsTextOnceAndOnlyWhenTheyWereLoaded)
{
    FakeSettingsStore store;
    Preferences preferences;
    SavePreferences(store, preferences);
    EXPECT_TRUE(store.values.empty());

    LoadPreferences(store, preferences);
    preferences.autoConnect = true;
    preferences.lastZorbusId = "0x333";
    preferences.serial.comPort = 7;
    SavePreferences(store, preferences);
    preferences.autoConnect = false;
    SavePreferences(store, preferences);
    EXPECT_EQ(store.flushes, 1);
    const auto saved = [&](const char* key) { return store.values[{"UserPreferences", key}]; };
    EXPECT_EQ(saved("AutoConnect") + saved("LastZorbusID") + saved("COM_Port") + saved("Baud"), "True0x33379600");

    LoadPreferences(store, preferences);
    preferences.lastChannel = "4";
    store.values[{"UserPreferences", "Baud"}] = "19200"; // by another program
    SavePreferences(store, preferences);
    EXPECT_EQ(saved("LastChannel") + " " + saved("Baud"), "4 19200");

    for (const auto& [text, baud] : {std::pair("", 9600), {"99999999999", 9600}, {" 12 ", 12}, {"1.5", 9600}}) {
        store.values[{"UserPreferences", "Baud"}] = text;
        LoadPreferences(store, preferences);
        EXPECT_EQ(preferences.serial.baudRate, baud) << text;
    }
}

}
}

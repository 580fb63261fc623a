#include "shell/CommandLine.h"

#include "support/ExitCode.h"
#include "support/ScriptedPrompts.h"

#include "base/Version.h"

#include <gtest/gtest.h>

namespace tarvex {

namespace {

struct Reading {
    const char* text;
    const char* dataFile;
    const char* wizardProduct;
    const char* flags; // of help, self-test, demo, batch: the first letters of those set
};

std::string FlagsOf(const CommandLine& line)
{
    return std::string(line.help ? "h" : "") + (line.selfTest ? "s" : "") + (line.demo ? "d" : "") +
           (line.batch ? "b" : "");
}

constexpr Reading kReadings[] = {
    {"", "", "", ""},
    {"  ", "", "", ""},
    {"-demo", "", "", "d"},
    {"-DEMO -Auto", "", "", "db"},
    {"-help", "", "", "h"},
    {"-h -zb_unit_test", "", "", "hs"},
    {"MyBoard.XML -demo", "MyBoard.XML", "", "d"},
    {"my board.xml -demo", "my board.xml", "", "d"},
    {"a.xml -b.xml", "a.xml", "", ""},
    {"my-file.xml", "my-file.xml", "", ""},
    {"-wVexlon", "", "VEXLON", ""},
    {"-wOssary_Plus -demo", "", "OSSARY-PLUS", "d"},
    {"-wVexlon-Fx", "", "VEXLON-FX", ""},
    {"new.xml", "", "EW.XML", ""},
    {"-auto  -demo", "", "", "db"},
};

struct Refusal {
    const char* text;
    const char* box; // none in batch mode
};

constexpr Refusal kRefusals[] = {
    {"-Nonsense", "Unrecognized command line parameter: nonsense"},
    {"--demo", "Unrecognized command line parameter: -demo"},
    {"board.txt", "Unrecognized command line parameter: board.txt"},
    {"-", "Unrecognized command line parameter: "},
    {"-demo -x -auto", "Unrecognized command line parameter: x"},
    {"-auto -x", nullptr},
};

}

TEST(CommandLine, IsReadIntoItsFields)
{
    for (const Reading& expected : kReadings) {
        SCOPED_TRACE(expected.text);
        ScriptedPrompts prompts;
        const CommandLine line = ParseCommandLine(expected.text, prompts);
        EXPECT_EQ(line.dataFile, expected.dataFile);
        EXPECT_EQ(line.wizardProduct, expected.wizardProduct);
        EXPECT_EQ(FlagsOf(line), expected.flags);
    }
}

TEST(CommandLine, EndsTheProgramForAnUnknownSwitch)
{
    for (const Refusal& refusal : kRefusals) {
        SCOPED_TRACE(refusal.text);
        ScriptedPrompts prompts;
        if (refusal.box)
            prompts.ExpectMessage(refusal.box);
        EXPECT_EQ(ExitCodeOf([&] { ParseCommandLine(refusal.text, prompts); }), 1);
    }
}

TEST(CommandLine, UsageBoxNamesProgramAndSwitches)
{
    ProgramState state;
    state.programFileName = "tarvex";
    ScriptedPrompts prompts;
    prompts.ExpectMessage(
        "Usage: \r\n filename.xml  has to be first parameter\r\n"
        "-demo  run the app normally but without communicating with target board\r\n-help  display this screen\r\n"
        "-auto  batch mode. Open and load filename.xml and exit.\r\n"
        "-w<productName>  display the product wizard UI. (choices: Vexlon, Vexlon-Fx, Cendra, Ossary, or Ossary_Plus)"
        "\r\n-zb_unit_test  run the unit tests and close");
    ShowUsage(state, prompts);
    EXPECT_EQ(prompts.messages.at(0).title, "tarvex " + AppVersionString());
}

}

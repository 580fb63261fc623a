#include "shell/CommandLine.h"

#include "support/ExitCode.h"
#include "support/ScriptedPrompts.h"

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
    {"-DEMO -Auto", "", "", "db"},
    {"-h -zb_unit_test", "", "", "hs"},
    {"My board.XML -demo", "My board.XML", "", "d"},
    {"a.xml -b.xml", "a.xml", "", ""},
    {"my-file.xml", "my-file.xml", "", ""},
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

}

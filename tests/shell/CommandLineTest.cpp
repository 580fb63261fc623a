#include "shell/CommandLine.h"

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

}

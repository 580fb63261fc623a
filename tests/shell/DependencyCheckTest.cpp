#include "shell/DependencyCheck.h"

#include "base/Error.h"
#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

namespace tarvex {

namespace {

class FakeNorvane : public INorvaneSystem {
public:
    explicit FakeNorvane(std::string version) : version_(std::move(version)) {}
    std::string Version() override { return version_; }
    bool MinimumVersion(const std::string& major, const std::string& minor, const std::string& build) override
    {
        EXPECT_EQ(major + "." + minor + "." + build, "1.1.11");
        return version_ != "1.1.10";
    }

private:
    std::string version_;
};

/// One library: its version, or the error that loading it gives.
struct Library {
    std::string version;
    std::int32_t error = 0;

    const std::string& Load() const
    {
        if (error != 0)
            Raise(error, "Loader", "it broke");
        return version;
    }
};

struct Case {
    Library xml;
    Library norvane;
    std::string box;
};

const std::string kNoXml =
    "Stopping execution. Unable to load ChilkatXML ActiveX component.  Last error is: it broke. ";
const std::string kNoNorvane =
    "Stopping execution. Unable to load Norvane.System ActiveX component.  Last error is: it broke. ";
const std::string kAdvice =
    " Inability to find a file/dll may indicate incorrect versions of dependent files/dll as well. Tarvex dependencies "
    "are listed in Tarvex_Versions.htm found in the installation folder or on the distribution CD.";

const Case kCases[] = {
    {{"5.0.1"}, {"1.1.11"}, ""},
    {{"5.0.0"}, {"1.1.10"}, "Dependency check:  Found ChilkatXML 5.0.0, Require 5.0.1"},
    {{"rubbish"}, {"1.1.11"}, "Dependency check:  Found ChilkatXML rubbish, Require 5.0.1"},
    {{"6.0.0"}, {"1.1.10"}, "Dependency check:  Found Norvane 1.1.10, Require 1.1.11"},
    {{"", 7}, {"1.1.11"}, kNoXml + "HELP. "},
    {{"", 53}, {"1.1.11"}, kNoXml + kAdvice + "HELP. "},
    {{"5.1.0"}, {"", 7}, kNoNorvane + "HELP. "},
    {{"5.1.0"}, {"", 53}, kNoNorvane + kAdvice},
};

}

TEST(DependencyCheck, TellsWhichLibraryIsMissingOrTooOld)
{
    ProgramState state;
    state.g_dependsHelp = "HELP";
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.box);
        ScriptedPrompts prompts;
        if (!each.box.empty())
            prompts.ExpectMessage(each.box);
        const Dependencies dependencies{[&] { return each.xml.Load(); },
                                        [&] { return std::make_shared<FakeNorvane>(each.norvane.Load()); }};
        EXPECT_EQ(TestForDependencies(dependencies, state, prompts), each.box.empty());
    }
}

}

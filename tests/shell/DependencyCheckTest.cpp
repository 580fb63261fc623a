#include "shell/Startup.h"

#include "platform/zorbus/SimulatedNorvaneSystem.h"
#include "shell/DocumentFixture.h"
#include "support/FakeSettingsStore.h"

namespace tarvex {

namespace {

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
const std::string kHelp = "Try running the registerActiveX_<OS version>.bat in /prog/../Depends.. ";

const Case kCases[] = {
    {{"5.0.0"}, {""}, "Dependency check:  Found ChilkatXML 5.0.0, Require 5.0.1"},
    {{"rubbish"}, {""}, "Dependency check:  Found ChilkatXML rubbish, Require 5.0.1"},
    {{"", 7}, {""}, kNoXml + kHelp},
    {{"", 53}, {""}, kNoXml + kAdvice + kHelp},
    {{"5.1.0"}, {"", 7}, kNoNorvane + kHelp},
    {{"5.1.0"}, {"", 53}, kNoNorvane + kAdvice},
};

}

TEST_F(DocumentTest, StartEndsBeforeAnythingElseWhenALibraryIsMissingOrTooOld)
{
    FakeSettingsStore settings;
    for (const Case& each : kCases) {
        prompts_.ExpectMessage(each.box);
        const Dependencies dependencies{[&] { return each.xml.Load(); },
                                        [&] {
                                            each.norvane.Load();
                                            return std::make_shared<SimulatedNorvaneSystem>();
                                        }};
        Startup startup(services_, dependencies, settings, mainView_);
        EXPECT_EQ(ExitCodeOf([&] { startup.Run(); }), 8);
        EXPECT_EQ(TakeJournal(), Lines());
        EXPECT_FALSE(preferences_.loaded);
    }
}

}

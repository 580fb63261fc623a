#include "shell/Startup.h"

#include "shell/DocumentFixture.h"
#include "support/FakeSettingsStore.h"

namespace tarvex {

namespace {

class FakeNorvane : public INorvaneSystem {
public:
    std::string Version() override { return "1.1.11"; }
    bool MinimumVersion(const std::string&, const std::string&, const std::string&) override { return true; }
};

class StartupTest : public DocumentTest {
protected:
    StartupTest()
    {
        dependencies_.xmlVersion = [this] { return xmlVersion_; };
        dependencies_.norvaneSystem = [] { return std::make_shared<FakeNorvane>(); };
    }

    std::string xmlVersion_ = "5.0.1";
    FakeSettingsStore settings_;
    Dependencies dependencies_;
};

}

TEST_F(StartupTest, TakesItsStepsInOrder)
{
    state_.libraryVersionText = state_.firmwareVersionText = state_.g_minInitVersion = "stale";
    preferences_.serial.text = "stale";
    settings_.values[{"UserPreferences", "COM_Port"}] = "4";
    {
        Startup startup(services_, dependencies_, settings_, mainView_);
        startup.Run();
        EXPECT_EQ(TakeJournal(),
                  (Lines{"main: InitialiseState", "main: ShowNetworkAddress no", "main: ShowSerialSettings no",
                         "main: LayOut", "main: SetStatusRefreshInterval 4000", "main: HookDeviceChanges",
                         "main: DisplayStatusMessage Select a product or Open File", "main: ApplyPreferences",
                         "main: EnableTransfers no", "main: HideView", "main: PrepareFileDialog /prog /prog/Tarvex.hlp",
                         "main: Attach yes", "Demo device: made", "main: Init Demo device", "main: ShowView"}));
    }
    EXPECT_EQ(TakeJournal(), (Lines{"main: Attach no", "Demo device: Disconnect", "Demo device: gone"}));
    EXPECT_EQ(state_.libraryVersionText + state_.firmwareVersionText + state_.g_minInitVersion, "2.4.0");
    EXPECT_EQ(preferences_.serial.text, "");
    EXPECT_EQ(preferences_.serial.comPort, 4);
}

TEST_F(StartupTest, EndsBeforeAnythingElseWhenALibraryIsTooOld)
{
    xmlVersion_ = "4.9.9";
    prompts_.ExpectMessage("Dependency check:  Found ChilkatXML 4.9.9, Require 5.0.1");
    Startup startup(services_, dependencies_, settings_, mainView_);
    EXPECT_EQ(ExitCodeOf([&] { startup.Run(); }), 8);
    EXPECT_EQ(TakeJournal(), Lines());
    EXPECT_FALSE(preferences_.loaded);
    EXPECT_EQ(state_.g_dependsHelp, "Try running the registerActiveX_<OS version>.bat in /prog/../Depends.");
}

}

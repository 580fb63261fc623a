#include "ui/wizards/cendra/Cendra.h"
#include "base/Text.h"
#include "comm/DemoDevice.h"
#include "model/RegisterObject.h"
#include "support/ExitCode.h"
#include "support/FakeMainView.h"
#include "support/FakeWait.h"
#include "support/FakeWizardFrameView.h"
#include "support/ShippedNetwork.h"
#include "ui/wizards/frame/ISerialWizardDialogs.h"
#include "ui/wizards/frame/WizardFrame.h"

namespace tarvex {

namespace {

std::string Replaced(std::string text, const std::string& what, const std::string& with)
{
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

/// A user who tries another port when no enclosure answers; with port 0 he gives up.
struct FakeDialogs : ISerialWizardDialogs {
    explicit FakeDialogs(std::int16_t tried) : port(tried) {}
    void ShowSerialSettings(const CommSettings&, const Changed&, const Cancelled&) override {}
    void ShowNoCommHelp(const CommSettings& settings, const Changed& changed, const Cancelled& cancelled) override
    {
        CommSettings other = settings;
        other.comPort = port;
        port == 0 ? cancelled() : changed(other);
    }
    std::int16_t port;
};

/// The wizard in its frame, on the shipped init file and the shipped network of enclosures.
class CendraTest : public testing::Test, protected DocumentFakes {
protected:
    CendraTest()
    {
        UseShippedNetwork(*this, wait_, rest_);
        services_.links["Demo"] = [this] { return std::make_shared<DemoDevice>(prompts_); };
        state_.g_minInitVersion = "2.4.0";
    }

    void Replace(const std::string& what, const std::string& with)
    {
        std::string& network = files_.files["/prog/ZorbusNetwork.xml"];
        network = Replaced(network, what, with);
    }
    void Fault(const std::string& rule) { Replace("<Port number=\"1\"", "<Fault " + rule + "/><Port number=\"1\""); }
    /// As the program does; a demo stays with the link that is there at first.
    void Start(const std::string& product, const std::string& link = kSerialDeviceType)
    {
        program_ = std::make_unique<Program>(*this);
        program_->document.Run(mainView_);
        program_->document.controller().GetDeviceNames(kAllOptions, kRegisterProtocol);
        program_->document.SelectCommLink(link);
        program_->document.controller().InitDevice(product == "Kestra-Fx" ? "Cendra" : product);
        Frame().Init(program_->document, nullptr);
        Frame().SetCurrentProduct(product);
        Calls();
    }
    /// At the enclosure of a position in the list of those that are found.
    void StartAt(const std::string& product, std::size_t position)
    {
        prompts_.ExpectBrowse(position);
        Start(product);
    }
    WizardFrame& Frame() { return program_->frame; }
    FakeWizardFrameView& View() { return program_->view; }
    void Select(const std::string& element) { Frame().ElementClicked(View().selected = element); }
    void Choose(const std::string& entry, const std::vector<MenuEntry>* menu = nullptr)
    {
        for (const MenuEntry& each : menu ? *menu : Frame().Description().options) {
            if (each.name == entry)
                Frame().Attempt(each.chosen);
            Choose(entry, &each.entries);
        }
    }
    /// What went to the enclosure since the last time: transfers as ASPI.parameter, C and a node command, R for a
    /// reboot.
    std::string Calls()
    {
        std::string calls;
        for (const std::string& line : Split(std::exchange(files_.files["journal"], ""), "\n")) {
            const auto fields = Split(line, ", ");
            const bool isWrite = line.starts_with("WriteParameter(");
            if (isWrite || line.starts_with("ReadParameter("))
                calls += line[0] + fields[2] + "." + fields[4].substr(2) + (isWrite ? "=" + fields[5] : "") + " ";
            else if (line.starts_with("CommandNode(") || line.starts_with("RebootNode("))
                calls += line[0] + (line[0] == 'C' ? fields[1] : "") + " ";
        }
        return calls;
    }

    struct Program {
        explicit Program(CendraTest& test)
            : document(test.services_), product(test.preferences_.serial, std::make_unique<FakeDialogs>(test.port_)),
              frame(self, view, product,
                    WizardServices{test.state_, test.files_, test.clock_, test.prompts_, test.errors_, test.wait_,
                                   [] { return nullptr; }}),
              self("wizard", test.script_)
        {
            view.barChanged = [this] { frame.BarChanged(); };
        }
        ~Program() { frame.Unload(); }

        Document document;
        FakeWizardFrameView view;
        Cendra product;
        WizardFrame frame;
        FakeWizardView self;
    };

    FakeWait wait_;
    ZoneRest rest_;
    std::int16_t port_ = 0; ///< that the user tries
    FakeMainView mainView_{journal_};
    std::unique_ptr<Program> program_;
};

constexpr const char* kRackS = "Discovered a single enclosure: Kestra Rack S (0x1B01)";
constexpr const char* kNoAnswer = "Unable to establish communication on SerialZorbus";

}

TEST_F(CendraTest, DiscoveryGoesOnUntilAnEnclosureCanBeUsed)
{
    preferences_.serial = {kSerialPortKind, 9600, "", true, 3, 0}; // nothing is attached there
    port_ = 2;
    prompts_.ExpectMessage(kRackS);
    Fault("operation=\"ReadSlotPopulation\" times=\"1\"");
    Start("Cendra");
    EXPECT_EQ(View().tree.at(0).caption, "Rack S");
    EXPECT_EQ(View().tree.at(0).children.at(0).children.at(3).caption, "Source 4");
    EXPECT_EQ(program_->document.controller().pid(), 0x1B01);
    EXPECT_EQ(View().valueText, "0 ns");
}

TEST_F(CendraTest, WithoutAnEnclosureTheProgramEnds)
{
    const std::string network = files_.files["/prog/ZorbusNetwork.xml"];
    const struct {
        const char *what, *with;
        std::vector<const char*> messages;
    } cases[] = {
        {">C4A0<", ">FFFF<", {kRackS, "No products discovered.  Exiting."}},
        {"<Port number=\"1\"",
         "<Fault operation=\"ReadSlotPopulation\" times=\"2\"/><Port number=\"1\"",
         {kRackS, "Unable to discover slot populations.  Exiting."}},
        {"<Port number=\"1\"",
         "<Fault operation=\"ReadNodeRecord\" after=\"1\"/><Port number=\"1\"",
         {kRackS, "Unexpected Failure to connect to Kestra Rack S (0x1B01). Closing Tarvex."}},
        {"<Port number=\"2\"", "<Port number=\"12\"", {kNoAnswer}},
        {"id=\"1B01\" type=\"1\"",
         "id=\"1B01\" type=\"25\"",
         {"Discovered a single enclosure:  Rack S (0x1B01)",
          "Device type of enclosure created from browse string in unrecognized - ", kNoAnswer}},
    };
    preferences_.serial = {kSerialPortKind, 9600, "", true, 2, 0};
    for (const auto& each : cases) {
        files_.files["/prog/ZorbusNetwork.xml"] = network;
        Replace(each.what, each.with);
        for (const char* message : each.messages)
            prompts_.ExpectMessage(message, std::string(message) == kNoAnswer ? Answer::Cancel : Answer::Ok);
        EXPECT_EQ(ExitCodeOf([this] { Start("Cendra"); }), 7) << each.with;
    }
    EXPECT_EQ(prompts_.messages.back().title, "Communication Failure");
}

TEST_F(CendraTest, DemoEnclosuresAreOfferedByProduct)
{
    prompts_.ExpectBrowse(std::nullopt);
    prompts_.ExpectMessage("Unable to establish communication on Demo device", Answer::Retry);
    prompts_.ExpectBrowse(1);
    Start("Ossary", "Demo");
    EXPECT_EQ(program_->document.controller().pid(), 0xC234);
    EXPECT_EQ(View().tree.at(0).children.at(0).children.size(), 32U);
    EXPECT_EQ(View().helpPicture, "/prog/Images/Ossary_splash.jpg");
    prompts_.ExpectBrowse(0);
    prompts_.ExpectMessage("Kestra-Fx not supported in this version");
    Start("Kestra-Fx", "Demo");
    EXPECT_EQ(View().valueText + View().Message(), "Select a channelSelect a leaf of the navigation tree");
    prompts_.ExpectMessage("Demo mode is not supported for Ossary-Plus");
    EXPECT_EQ(ExitCodeOf([this] { Start("Ossary-Plus", "Demo"); }), 9);
}

TEST_F(CendraTest, EachConnectorIsATargetOfItsOwn)
{
    StartAt("Cendra", 0);
    Frame().NodeClicked("1product Source 10");
    EXPECT_EQ(Calls(), "R72.10 ");
    EXPECT_EQ(journal_.at(journal_.size() - 3) + journal_.at(journal_.size() - 2),
              "main: SetZorbusID 6699main: SetChannelNum 10");
    View().node = "root";
    Frame().NodeClicked("root"); // stays there
    EXPECT_EQ(View().node, "1product Source 10");
    Select("Green_Skew");
    View().MoveBar(7);
    EXPECT_EQ(View().valueText, "14 ns");
    EXPECT_EQ(Calls(), "R72.10 R73.11 W73.11=7 ");
    for (const auto& [kind, name, calls] :
         {std::tuple(kRegisterChanged, "Red_Skew", ""), {kRegisterChanged, "Green_Skew", "R73.11 "}}) {
        Frame().UpdateUI(kind, name);
        EXPECT_EQ(Calls(), calls);
    }
    mainView_.isVisible = true; // from now on every register is to be seen
    Frame().OpenAdvancedView();
    EXPECT_EQ(Calls(), "R72.10 R73.11 R74.12 R72.14 R72.15 ");
    Frame().NodeClicked("1product Source 2");
    EXPECT_EQ(Calls(), "R8.10 R9.11 R10.12 R8.14 R8.15 R9.11 ");
    EXPECT_GT(mainView_.valuesShown, 0);
    const auto edited = program_->document.controller().GetI2CRegisterByName("Red_Skew");
    edited->value(5);
    mainView_.dropsEdits = false;
    Frame().NodeClicked("1product Source 3");
    EXPECT_EQ(View().node, "1product Source 2");
    mainView_.dropsEdits = true;
    Frame().NodeClicked("1product Source 3"); // must not get it
    EXPECT_FALSE(edited->IsDirty());
}

TEST_F(CendraTest, AnElementOfTwoBitsetsIsWrittenFromTheUpperOne)
{
    StartAt("Ossary", 2);
    const std::pair<const char*, int> steps[] = {
        {"Blue_Skew", 3}, {"Color_Gain", 5}, {"Horizontal Position", 10}, {"Cable Equalization", 131}};
    for (const auto& [element, largeStep] : steps) {
        Select(element);
        EXPECT_EQ(View().bar.largeChange, largeStep) << element;
    }
    EXPECT_EQ(View().bar.position, 0x1000);
    Calls();
    View().MoveBar(0x1234);
    EXPECT_EQ(Calls(), "W0.25=18 W0.24=52 ");
    EXPECT_EQ(View().valueText, "4660");
}

TEST_F(CendraTest, CopyReadsFromOneConnectorAndWritesToThree)
{
    Fault("operation=\"WriteParameter\" aspi=\"9\" times=\"1\" as=\"refused\"");
    StartAt("Cendra", 0);
    Choose("LoadAllConfigElements");
    EXPECT_EQ(Calls(), "");
    Choose("SelectMultiChannels");
    EXPECT_FALSE(View().disabled.contains("Selected"));
    View().checkedNodes = {
        "root", "1product", "1product Source 1", "1product Source 2", "1product Source 3", "1product Source 9"};
    const auto edited = program_->document.controller().GetI2CRegisterByName("Red_Skew");
    edited->value(9); // and not in the board
    prompts_.ExpectMessage("error writing register for connector 2 to Cendra");
    Choose("LoadAllConfigElements");
    EXPECT_EQ(edited->value(), 9);
    EXPECT_EQ(Calls(), "R0.10 W8.10=0 R1.11 W9.11=0 R2.12 W10.12=0 R0.14 W8.14=32 R0.15 W8.15=64 "
                       "R0.10 W16.10=0 R1.11 W17.11=0 R2.12 W18.12=0 R0.14 W16.14=32 R0.15 W16.15=64 "
                       "R0.10 W64.10=0 R1.11 W65.11=0 R2.12 W66.12=0 R0.14 W64.14=32 R0.15 W64.15=64 ");
}

TEST_F(CendraTest, BoardsOfAnotherProductAreNeitherReadNorWritten)
{
    StartAt("Cendra", 3);
    Frame().NodeClicked("1product Source 1");
    Calls();
    View().checkedNodes = {"2product Source 17"};
    Choose("LoadAllConfigElements");
    Frame().NodeClicked("2product Source 17");
    EXPECT_EQ(View().Message(), "This channel belongs to another product than Cendra");
    View().checkedNodes = {"1product Source 2"};
    Choose("LoadAllConfigElements");
    EXPECT_EQ(Calls(), "");
}

TEST_F(CendraTest, ALinkThatIsLostEndsTheCopyWithOneMessageAndComesBack)
{
    Fault("operation=\"ReadParameter\" after=\"3\" times=\"1\"");
    Fault("operation=\"PingNode\" after=\"1\" times=\"1\"");
    StartAt("Cendra", 0);
    View().checkedNodes = {"1product Source 2", "1product Source 3"};
    prompts_.ExpectMessage("Unable to establish communication with Cendra");
    Choose("LoadAllConfigElements");
    EXPECT_EQ(Calls(), "R0.10 W8.10=0 R1.11 W9.11=0 R2.12 ");
    EXPECT_EQ(View().valueText, "Communication Failure");
    Select("Color_Gain");
    EXPECT_EQ(View().valueText, "64");
    EXPECT_EQ(Calls(), "R0.15 ");
}

TEST_F(CendraTest, ALinkThatIsLostWhileAFileIsLoadedTurnsTheBarOff)
{
    Fault("operation=\"WriteParameter\" after=\"1\" times=\"1\"");
    Fault("operation=\"PingNode\" after=\"1\" times=\"1\"");
    StartAt("Cendra", 0);
    prompts_.ExpectSaveFile("/data/rack.xml");
    prompts_.ExpectMessage("Save settings to hardware (Rack A)?", Answer::No);
    Frame().SaveAs();
    Calls();
    prompts_.ExpectOpenFile("/data/rack.xml");
    prompts_.ExpectMessage("Unable to establish communication with Cendra");
    Frame().Open();
    EXPECT_EQ(Calls(), "W0.10=0 W1.11=0 ");
    EXPECT_EQ(View().valueText, "Communication Failure");
    EXPECT_FALSE(View().barEnabled); // how much of the file the board holds is not known
    Select("Color_Gain");
    EXPECT_EQ(View().valueText, "64");
}

TEST_F(CendraTest, AFileHoldsEveryConnector)
{
    Fault("operation=\"WriteParameter\" aspi=\"88\" after=\"2\" times=\"1\" as=\"refused\"");
    StartAt("Cendra", 0);
    Frame().NodeClicked("1product Source 12");
    Select("Color_Peak");
    View().MoveBar(99);
    prompts_.ExpectSaveFile("/data/rack.xml");
    prompts_.ExpectMessage("Save settings to hardware (Rack A)?", Answer::No);
    Frame().SaveAs();
    View().MoveBar(98);
    Calls();
    prompts_.ExpectOpenFile("/data/rack.xml");
    prompts_.ExpectMessage("error writing register to Cendra"); // and those behind it are written
    Frame().Open();
    const std::string calls = Calls();
    EXPECT_NE(calls.find("W88.14=99 "), std::string::npos) << calls;
    EXPECT_EQ(Split(calls, "W").size(), 1 + 8 * 5U) << calls;
    EXPECT_TRUE(calls.ends_with("W88.15=64 R88.14 ")) << calls;
    EXPECT_EQ(View().bar.position, 99);
    EXPECT_EQ(View().Message(), "Not everything in /data/rack.xml reached the board. Open it again.");
    prompts_.ExpectOpenFile("/data/rack.xml");
    Frame().Open();
    Calls();
    EXPECT_EQ(View().Message(), "Opened file: /data/rack.xml");
    EXPECT_EQ(program_->document.controller().pid(), 0x1A2B);

    const std::string whole = files_.files["/data/rack.xml"];
    for (const auto& [what, with, message] :
         {std::tuple(">0</Slot>", ">C020</Slot>",
                     "The file /data/rack.xml does not fit the enclosure Rack A: it has 2 products, the enclosure 1."),
          {"<Name>Cendra<", "<Name>Other<",
           "The file /data/rack.xml does not fit the enclosure Rack A: it holds no settings of Cendra."},
          {">0</Slot>", ">C4A0</Slot>", "Unexpected error opening file /data/rack.xml"},
          {"<Slot number=\"2\">C4A0</Slot>", "",
           "The file /data/rack.xml does not fit the enclosure Rack A: it has 2 slots, the enclosure 3."}}) {
        files_.files["/data/rack.xml"] = Replaced(whole, what, with);
        prompts_.ExpectOpenFile("/data/rack.xml");
        prompts_.ExpectMessage(message);
        Frame().Open();
        EXPECT_EQ(Calls(), "") << with;
    }
}

TEST_F(CendraTest, SavedSettingsAreThereInTheNextRun)
{
    StartAt("Cendra", 0);
    View().MoveBar(5);
    prompts_.ExpectMessage("Success saving settings.");
    Choose("SyncToFlash");
    EXPECT_EQ(Calls(), "W0.10=5 C1 R ");
    EXPECT_EQ(prompts_.messages.back().title, "Cendra Save To System");
    View().MoveBar(6);
    program_.reset();
    StartAt("Cendra", 0);
    EXPECT_EQ(View().valueText, "10 ns");
    View().MoveBar(6);
    prompts_.ExpectMessage("Success restoring settings.");
    Choose("RestoreFlash");
    EXPECT_EQ(Calls(), "W0.10=6 R R0.10 ");
    EXPECT_EQ(View().valueText + View().Message(), "10 nsFlash settings restored.");
}

TEST_F(CendraTest, ARebootWithoutAnAnswerIsAFailure)
{
    Replace("silentPings=\"2\"", "silentPings=\"9\"");
    StartAt("Cendra", 0);
    prompts_.ExpectMessage("Failed to sync to flash");
    Choose("SyncToFlash");
    EXPECT_EQ(prompts_.messages.back().title, "Cendra Save to System");
    EXPECT_EQ(View().valueText, "Communication Failure");
    Select("Red_Skew");
    Select("Red_Skew");
    prompts_.ExpectMessage("Failed to sync to flash.  No response after reboot from 0x1A2B");
    Choose("RestoreFlash");
}

TEST_F(CendraTest, ThePulseWidthMovesInTensUpToItsEnds)
{
    StartAt("Ossary", 2);
    prompts_.ExpectMessage("Increasing the Horizontal Pulse Width is only available when the Horizontal Pulse Width "
                           "is the selected configuration element");
    Choose("IncreaseHSyncPulseWidth");
    Select("Horizontal Pulse Width");
    View().MoveBar(251);
    Choose("IncreaseHSyncPulseWidth");
    Choose("IncreaseHSyncPulseWidth");
    EXPECT_EQ(View().Message(), "Horizontal Pulse Width is already at its maximum");
    Choose("DecreaseHSyncPulseWidth");
    EXPECT_EQ(Calls(), "R0.18 W0.18=251 R0.18 W0.18=255 R0.18 R0.18 R0.18 W0.18=245 R0.18 ");
    EXPECT_EQ(View().bar.position, 245);
}

}

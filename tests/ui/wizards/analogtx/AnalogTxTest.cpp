#include "ui/wizards/analogtx/AnalogTx.h"
#include "base/Text.h"
#include "model/RegisterObject.h"
#include "support/FakeDevice.h"
#include "support/FakeMainView.h"
#include "support/FakeWait.h"
#include "support/FakeWizardFrameView.h"
#include "support/ShippedNetwork.h"
#include "ui/wizards/frame/WizardFrame.h"

namespace tarvex {
namespace {

/// A user who chooses one port after the other, and then cancels.
struct PortChooser : ISerialWizardDialogs {
    explicit PortChooser(std::vector<std::int16_t>& chosen) : ports(chosen) {}
    void ShowSerialSettings(const CommSettings& settings, const Changed& changed, const Cancelled& cancelled) override
    {
        if (ports.empty())
            return cancelled();
        CommSettings other = settings;
        other.kind = kSerialPortKind;
        other.comPort = ports.front();
        ports.erase(ports.begin());
        changed(other);
    }
    void ShowNoCommHelp(const CommSettings&, const Changed&, const Cancelled&) override {}
    std::vector<std::int16_t>& ports;
};

/// The wizard in its frame on the network that the program comes with, its calls journalled.
class AnalogTxTest : public testing::Test, protected DocumentFakes {
protected:
    AnalogTxTest()
    {
        UseShippedNetwork(*this, wait_, rest_);
        preferences_.serial.kind = kSerialPortKind;
        demo_->type = "Demo device";
        services_.links["Demo"] = [this] { return demo_; };
        view_.barChanged = [this] { frame_.BarChanged(); };
    }
    ~AnalogTxTest() override { frame_.Unload(); }

    /// Starts with calls of the network that fail, such as "operation='PingNode'".
    void Start(const std::string& faults = {})
    {
        std::string& network = files_.files["/prog/ZorbusNetwork.xml"];
        network.insert(network.find("<Wait"), faults.empty() ? "" : "<Fault " + faults + "/>");
        document_ = std::make_unique<Document>(services_);
        document_->Run(mainView_);
        document_->controller().GetDeviceNames(kAllOptions, kRegisterProtocol); // as the main window does
        document_->SelectCommLink(kSerialDeviceType);
        document_->controller().InitDevice("Ossary-Plus");
        for (const MenuEntry& each : frame_.Description().options) {
            entries_[each.name] = each.chosen;
            view_.captions[each.name] = each.caption;
        }
        frame_.Init(*document_, nullptr);
        frame_.SetCurrentProduct("Ossary-Plus");
        Calls();
    }
    void Select(const std::string& element) { frame_.ElementClicked(view_.selected = element); }
    void Choose(const std::string& entry) { frame_.Attempt(entries_.at(entry)); }
    /// The library's calls since the last time: operation, and of transfers ASPI and parameter.
    std::string Calls()
    {
        std::string calls;
        for (const std::string& line : Split(std::exchange(files_.files["journal"], ""), "\n"))
            if (const auto fields = Split(line, ", "); !line.empty())
                calls += line.substr(0, line.find('(')) + (fields.size() > 4 ? fields[2] + ":" + fields[4] : "") + " ";
        return calls;
    }
    std::int32_t Value(const std::string& name) { return document_->controller().GetI2CRegisterByName(name)->value(); }

    std::shared_ptr<FakeDevice> demo_ = std::make_shared<FakeDevice>();
    FakeMainView mainView_{journal_};
    FakeWait wait_;
    ZoneRest rest_;
    std::unique_ptr<Document> document_;
    FakeWizardView self_{"wizard", script_};
    FakeWizardFrameView view_;
    std::vector<std::int16_t> ports_;
    AnalogTx product_{preferences_.serial, std::make_unique<PortChooser>(ports_)};
    WizardFrame frame_{self_, view_, product_,
                       WizardServices{state_, files_, clock_, prompts_, errors_, wait_, [] { return nullptr; }}};
    std::map<std::string, std::function<void()>> entries_;
};

TEST_F(AnalogTxTest, ElementsAreTransferredHighestByteFirstAtTheOneSignalProcessor)
{
    Start();
    EXPECT_EQ(view_.tree.size(), 1U);
    Select("Horizontal Position");
    EXPECT_EQ(Calls(), "ReadParameter1:0x21 ReadParameter1:0x20 ");
    EXPECT_EQ(view_.bar.maximum, 0x7FF);
    EXPECT_EQ(view_.bar.position, 0x90);
    view_.MoveBar(0x234);
    EXPECT_EQ(Calls(), "WriteParameter1:0x21 WriteParameter1:0x20 ");
    EXPECT_EQ(Value("H_Pos_MSB") << 8 | Value("H_Pos_LSB"), 0x234);
    EXPECT_EQ(journal_.back(), "main: UpdateUI 2 Horizontal Position");
    Select("Green_Skew");
    view_.MoveBar(7);
    EXPECT_EQ(view_.valueText, "14 ns");
    frame_.NodeClicked("Ossary-Plus");
    EXPECT_TRUE(Calls().ends_with("PingNode ReadParameter1:0x11 "));
    Choose("Enable_DisableCOM");
    Choose("Enable_DisableCOM"); // the board may have been changed meanwhile
    EXPECT_GT(Split(Calls(), "ReadParameter").size(), 7U);
}

TEST_F(AnalogTxTest, SavedSettingsComeBackAndTheDataFileIsDropped)
{
    Start();
    Select("Color_Gain");
    view_.MoveBar(100);
    Calls();
    prompts_.ExpectMessage("Success saving settings.");
    Choose("SyncToFlash");
    EXPECT_EQ(Calls() + view_.Message(), "CommandNode Flash synced.");
    prompts_.ExpectSaveFile("/home/a.xml");
    frame_.SaveAs();
    view_.MoveBar(50);
    prompts_.ExpectMessage("Success restoring settings.");
    Choose("RestoreFlash");
    EXPECT_EQ(view_.bar.position, 100);
    EXPECT_EQ(view_.title + ": " + view_.Message(), "Tarvex: Settings restored.");
}

TEST_F(AnalogTxTest, ACacheCommandThatFailsIsToldAndChangesNothing)
{
    Start("operation='CommandNode'");
    for (const auto& [entry, text, title] :
         {std::array{"SyncToFlash", "Failed to sync to flash", "AnalogTx Save to System"},
          {"RestoreFlash", "Failed to restore from flash.", " AnalogTx Restore Settings"}}) {
        prompts_.ExpectMessage(text);
        Choose(entry);
        EXPECT_EQ(prompts_.messages.back().title, title);
        EXPECT_EQ(Calls(), "CommandNode PingNode "); // it still answers
    }
}

TEST_F(AnalogTxTest, AFileIsWrittenAfterTheTryAndAFailedRegisterIsTold)
{
    Start("operation='WriteParameter' parameter='14'");
    prompts_.ExpectSaveFile("/home/a.xml");
    frame_.SaveAs();
    Select("Color_Gain");
    view_.MoveBar(50);
    Calls();
    files_.files["/home/b.xml"] = InitFileBuilder().Text(); // of another board
    prompts_.ExpectOpenFile("/home/b.xml");
    prompts_.ExpectMessage("Unable to open file /home/b.xml. See TarvexError.log for details");
    frame_.Open();
    EXPECT_EQ(Calls(), "");
    prompts_.ExpectOpenFile("/home/a.xml");
    prompts_.ExpectMessage("error writing register to Ossary-Plus");
    frame_.Open();
    const std::string calls = Calls();
    EXPECT_TRUE(calls.starts_with("WriteParameter1:0x8 ReadParameter1:0x8 WriteParameter1:0x8 ")) << calls;
    EXPECT_EQ(view_.bar.position, 0x40);
}

TEST_F(AnalogTxTest, TheSettingsOfThePortAreTriedUntilTheBoardAnswers)
{
    Start();
    Select("Color_Gain");
    view_.MoveBar(50);
    Choose("Enable_DisableCOM");
    EXPECT_FALSE(view_.disabled.contains("SerialPortSettings"));
    ports_ = {3, 1};
    const std::string question =
        "Unable to communicate to hardware. Do you want to continue to change the communication settings?";
    prompts_.ExpectMessage(question, Answer::Yes);
    Choose("SerialPortSettings");
    EXPECT_EQ(view_.captions["Enable_DisableCOM"], "&Disable COM");
    EXPECT_EQ(Value("Color_Gain"), 50); // the registers were made anew, and read
    EXPECT_EQ(document_->controller().pid(), 0x333);
    Choose("Enable_DisableCOM");
    ports_ = {3};
    prompts_.ExpectMessage(question, Answer::No);
    Choose("SerialPortSettings");
    EXPECT_EQ(view_.Message(), "Failed to get current status of Color_Gain setting.");
    EXPECT_EQ(preferences_.serial.comPort, 3);
}

TEST_F(AnalogTxTest, ALostBoardLeavesThePortClosedAndOpensItWhenItAnswersAgain)
{
    Start("operation='WriteParameter' times='1'/><Fault operation='PingNode' after='1' times='2'");
    Select("Color_Gain");
    const auto port = [this] { return view_.valueText + view_.captions["Enable_DisableCOM"]; };
    view_.MoveBar(50);
    EXPECT_EQ(port(), "Communication Failure&Enable COM");
    EXPECT_EQ(Value("Color_Gain"), 0x40); // which a file would be saved from
    Calls();
    view_.MoveBar(51);
    EXPECT_EQ(port(), "51&Disable COM");
    const std::string calls = Calls(); // it may have come back with other values, which a file must not miss
    EXPECT_TRUE(calls.ends_with(" WriteParameter1:0x15 ") && Split(calls, "ReadParameter").size() > 7U) << calls;
    EXPECT_EQ(view_.disabled, std::set<std::string>{"SerialPortSettings"});
}

TEST_F(AnalogTxTest, WhatWasNeverReadIsNotSavedUnasked)
{
    preferences_.serial.comPort = 3; // nothing is attached there
    prompts_.ExpectMessage("Unable to establish communication with Ossary-Plus");
    Start("operation='ReadParameter' parameter='14' times='2' as='refused'");
    ports_ = {1};
    Choose("SerialPortSettings");
    prompts_.ExpectSaveFile("/home/a.xml");
    prompts_.ExpectMessage("These registers could not be read from the board:\n\nColor_Peak\n\nThe file will hold what "
                           "was last known of them. Save it anyway?",
                           Answer::No);
    frame_.SaveAs();
    EXPECT_FALSE(files_.files.contains("/home/a.xml"));
    prompts_.ExpectSaveFile("/home/a.xml");
    frame_.SaveAs();
    EXPECT_TRUE(files_.files.contains("/home/a.xml"));
}

TEST_F(AnalogTxTest, WithoutABoardOnlyThePortIsWithinReachAndAnotherLinkCanTakeItsPlace)
{
    preferences_.serial.comPort = 3;
    prompts_.ExpectMessage("Unable to establish communication with Ossary-Plus");
    Start();
    for (const char* entry : {"File", "Edit", "SyncToFlash", "RestoreFlash", "StartLogging", "SerialPortSettings"})
        EXPECT_TRUE(view_.disabled.contains(entry)) << entry;
    EXPECT_FALSE(view_.disabled.contains("Options"));
    prompts_.ExpectMessage("Unable to connect to COM3");
    Choose("Enable_DisableCOM");
    ports_ = {1};
    Choose("SerialPortSettings");
    EXPECT_EQ(view_.disabled, (std::set<std::string>{"SerialPortSettings", "Undo"}));
    document_->SelectCommLink("Demo");
    EXPECT_EQ(view_.Message(), "Serial port connected on COM 0");
    Select("Color_Gain");
    EXPECT_EQ(demo_->transfers.back().aspi, kNoAspi);
    prompts_.ExpectMessage("Logging not supported in demo mode.");
    Choose("StartLogging");
}

}
}

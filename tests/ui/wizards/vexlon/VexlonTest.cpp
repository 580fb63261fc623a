#include "ui/wizards/vexlon/Vexlon.h"
#include "model/RegisterObject.h"
#include "shell/Document.h"
#include "support/DocumentFakes.h"
#include "support/FakeDevice.h"
#include "support/FakeMainView.h"
#include "support/FakeWait.h"
#include "support/FakeWizardFrameView.h"
#include "ui/wizards/frame/WizardFrame.h"

#include <fstream>

namespace tarvex {

namespace {

/// A board of which some channels, by their product ids, do not answer.
class FiberBoard : public FakeDevice {
public:
    std::set<std::int32_t> deadIds;

private:
    std::int32_t IDevice_connect(std::int32_t productId, std::int32_t) override
    {
        verifies = connected = !deadIds.contains(productId);
        return connected ? 1 : 0;
    }
};

/// The wizard in its frame, with the init file that the program comes with and a fake board on the USB link.
class VexlonTest : public testing::Test, protected DocumentFakes {
protected:
    using Values = std::vector<std::pair<std::string, int>>;

    VexlonTest()
    {
        std::ifstream file(TARVEX_SHARE "/Tarvex.xml");
        InitFile().assign(std::istreambuf_iterator<char>(file), {});
        services_.links["Demo"] = services_.links["USB-HID Device"] = [this] { return usb_; };
        usb_->type = "USB-HID Device";
        usb_->onTransfer = [this](const FakeDevice::Transfer& transfer) {
            if (usb_->mute.contains({transfer.baseAddress, transfer.parameterId})) // the fake raises no events
                frame_.Link().ehHIDDevice_ReadFailure(0, 0);
        };
        document_ = std::make_unique<Document>(services_);
        document_->Run(mainView_);
        document_->controller().GetDeviceNames(kAllOptions, kRegisterProtocol); // as the main window does
        view_.barChanged = [this] { frame_.BarChanged(); };
        AddEntries(frame_.Description().options);
    }
    ~VexlonTest() override { frame_.Unload(); }

    void Start(const std::string& device, const std::string& product, const Values& board = {})
    {
        document_->controller().InitDevice(device);
        Fill(board);
        frame_.Init(*document_, nullptr);
        frame_.SetCurrentProduct(product);
        usb_->transfers.clear();
    }
    void Fill(const Values& board)
    {
        for (const auto& [name, value] : board)
            Cell(name) = {static_cast<std::uint8_t>(value)};
    }
    void Choose(const std::string& entry) { frame_.Attempt(entries_.at(entry)); }
    void Select(const std::string& element) { frame_.ElementClicked(view_.selected = element); }
    FakeDevice::Place PlaceOf(const std::string& name)
    {
        const auto found = document_->controller().GetI2CRegisterByName(name);
        return {found->BaseAddress(), found->Address()};
    }
    Bytes& Cell(const std::string& name) { return usb_->memory[PlaceOf(name)]; }
    /// The writes since the last call, by register name.
    Values TakeWrites()
    {
        std::map<FakeDevice::Place, std::string> names;
        for (std::int16_t i = 0; i < document_->controller().GetI2CRegisterCount(); ++i)
            if (const auto found = document_->controller().GetI2CRegister(i))
                names[PlaceOf(found->Name())] = found->Name();
        Values written;
        for (const auto& each : usb_->transfers)
            if (each.kind == FakeDevice::Kind::Write)
                written.emplace_back(names[{each.baseAddress, each.parameterId}], each.bytes.at(0));
        usb_->transfers.clear();
        return written;
    }
    void AddEntries(const std::vector<MenuEntry>& menu)
    {
        for (const MenuEntry& each : menu) {
            entries_[each.name] = each.chosen;
            AddEntries(each.entries);
        }
    }

    std::shared_ptr<FiberBoard> usb_ = std::make_shared<FiberBoard>();
    FakeMainView mainView_{journal_};
    FakeWait wait_;
    std::unique_ptr<Document> document_;
    FakeWizardView self_{"wizard", script_};
    FakeWizardFrameView view_;
    Vexlon product_;
    WizardFrame frame_{self_, view_, product_,
                       WizardServices{state_, files_, clock_, prompts_, errors_, wait_, [] { return nullptr; }}};
    std::map<std::string, std::function<void()>> entries_;
};

constexpr const char* kUse60Hz = "Use a default refresh rate of 60Hz?";
constexpr const char* kGainQuestion = "This contrast setting will cause the current gain differential in Blue Gain to "
                                      "be lost. Continue?";
const std::vector<std::pair<std::string, int>> kMode1024{
    {"DE_CNT MSB", 4}, {"DE_CNT LSB", 0}, {"DE_LIN MSB", 3}, {"DE_LIN LSB", 0}, {"VCO/CPMP", 0x60}};

}

TEST_F(VexlonTest, ElementsMapToTheirRegistersAndBounds)
{
    Start("Vexlon", "Vexlon", kMode1024);
    EXPECT_EQ(view_.Message(), "Success connecting and retrieving data.");
    const Values offsets{{"Red Offset", 10}, {"Green Offset", 20}, {"Blue Offset", 30}};
    const std::tuple<const char*, Values, std::int32_t, std::int32_t, std::int32_t, Values> cases[] = {
        {"Horizontal Position", {{"DE_DLY", 0}}, 254, 254, 0, {{"DE_DLY", 254}}},
        {"Vertical Position", {{"DE_TOP", 10}}, 254, 10, 11, {{"DE_TOP", 11}}},
        {"Height", {{"DE_LIN LSB", 1}}, 2047, 769, 255, {{"DE_LIN MSB", 0}, {"DE_LIN LSB", 255}}},
        {"Fine Tune", {{"PLL Div LSB", 0x28}}, 15, 2, 15, {{"PLL Div LSB", 0xF0}}},      // 2.5
        {"Phase Timing", {{"Phase Adjust", 0x1C}}, 31, 4, 31, {{"Phase Adjust", 0xF8}}}, // 3.5
        {"Brightness", offsets, 254, 234, 229, {{"Red Offset", 15}, {"Green Offset", 25}, {"Blue Offset", 35}}},
        {"Contrast", {}, 254, 254, 253, {{"Red Gain", 1}, {"Green Gain", 1}, {"Blue Gain", 1}}},
    };
    for (const auto& [element, board, high, position, moveTo, written] : cases) {
        Fill(board);
        Select(element);
        EXPECT_EQ(view_.bar.maximum, high) << element;
        EXPECT_EQ(view_.bar.position, position) << element;
        EXPECT_EQ(TakeWrites(), Values{}) << element;
        view_.MoveBar(moveTo);
        EXPECT_EQ(TakeWrites(), written) << element;
    }
}

TEST_F(VexlonTest, AnUnknownRefreshIsAskedForAndAWideModeKeepsIt)
{
    Start("Vexlon", "Vexlon", kMode1024);
    prompts_.ExpectMessage(kUse60Hz, Answer::No);
    Choose("Resolution0_8");
    EXPECT_EQ(TakeWrites().size(), 6U);
    EXPECT_EQ(Cell("PLL Div MSB"), Bytes{0x9C});
    prompts_.ExpectMessage(kUse60Hz, Answer::Yes);
    Choose("Resolution0_8");
    EXPECT_EQ(TakeWrites().back(), (std::pair<std::string, int>{"VCO/CPMP", 0xF0}));
    EXPECT_EQ(view_.checked, (std::set<std::string>{"Resolution0_8", "Refresh0_1"}));
    Choose("Refresh0_7");
    EXPECT_EQ(view_.Message(), "Width of 1920 is out of range.");
    EXPECT_EQ(TakeWrites(), Values{});
    EXPECT_EQ(view_.panels["Refresh"], "60Hz");
}

TEST_F(VexlonTest, ResolutionAndRefreshAreUndoneOnce)
{
    Start("Vexlon", "Vexlon", kMode1024);
    Choose("Refresh0_5"); // 75 Hz
    EXPECT_EQ(TakeWrites(), (Values{{"VCO/CPMP", 0x68}}));
    frame_.Undo();
    EXPECT_EQ(TakeWrites(), (Values{{"VCO/CPMP", 0x60}}));
    EXPECT_EQ(view_.panels["Refresh"], " ");
    Choose("Refresh0_1");
    Choose("Resolution0_0");
    frame_.Undo();
    EXPECT_EQ(Cell("PLL Div MSB"), Bytes{0x53});
    for (const auto& [name, value] : kMode1024)
        EXPECT_EQ(Cell(name), Bytes{static_cast<std::uint8_t>(value)}) << name;
    EXPECT_EQ(view_.Message(), "Undoing resolution.");
    EXPECT_TRUE(view_.disabled.contains("Undo"));
    frame_.Undo();
    EXPECT_EQ(view_.Message(), "No resolution to undo.");
    view_.MoveBar(view_.bar.position - 1); // the first change since the element was selected
    frame_.Undo();
    EXPECT_EQ(view_.Message(), "Undoing Brightness");
}

TEST_F(VexlonTest, ABoardThatComesBackWithItsModeKeepsRefreshAndUndo)
{
    Start("Vexlon", "Vexlon", kMode1024);
    Choose("Refresh0_5");
    TakeWrites();
    frame_.CommFailure();
    frame_.Undo();
    EXPECT_EQ(TakeWrites(), (Values{{"VCO/CPMP", 0x60}}));
    for (const char* other : {"VCO/CPMP", "DE_LIN MSB"}) {
        Fill(kMode1024);
        frame_.UpdateUI(kRegisterChanged, "DE_LIN MSB");
        Choose("Refresh0_5");
        TakeWrites();
        frame_.CommFailure();
        Fill({{other, 1}}); // the board was switched off, or is another one
        frame_.Undo();
        EXPECT_EQ(view_.Message(), "No refresh to undo.") << other;
        EXPECT_EQ(view_.panels["Refresh"], " ");
        EXPECT_EQ(TakeWrites(), Values{});
    }
    prompts_.ExpectMessage(kUse60Hz, Answer::No);
    Choose("Resolution0_0");
    frame_.CommFailure();
    Fill({{"DE_LIN MSB", 2}});
    frame_.Undo();
    EXPECT_EQ(view_.Message(), "No resolution to undo.");
}

TEST_F(VexlonTest, AFailedPllWriteKeepsTheRefreshAndAnUnknownSizeWritesNothing)
{
    Start("Vexlon", "Vexlon", {{"DE_CNT MSB", 0xFF}});
    EXPECT_EQ(view_.panels["Resolution"], "0x0");
    Choose("Refresh0_1");
    EXPECT_EQ(view_.Message(), "The PLL has no setting for 0x0 at 60Hz.");
    EXPECT_EQ(TakeWrites(), Values{});
    usb_->mute = {PlaceOf("VCO/CPMP")};
    prompts_.ExpectMessage(kUse60Hz, Answer::Yes);
    Choose("Resolution0_2");
    EXPECT_EQ(view_.Message(), "Failed to write VCO/CPMP");
    EXPECT_EQ(document_->controller().GetI2CRegisterByName("VCO/CPMP")->value(), 0); // as the board has it
}

TEST_F(VexlonTest, AWriteThatFailedInPartIsReadAgain)
{
    Start("Vexlon", "Vexlon", {{"Red Offset", 10}, {"Green Offset", 20}, {"Blue Offset", 30}, {"DE_TOP", 9}});
    Select("Brightness");
    const auto refuseAt = [this](const char* name, FakeDevice::Kind kind) {
        usb_->onTransfer = [=, this, cell = Cell(name)](const FakeDevice::Transfer& transfer) {
            if (PlaceOf(name) != FakeDevice::Place(transfer.baseAddress, transfer.parameterId) || transfer.kind != kind)
                return;
            if (kind == FakeDevice::Kind::Write)
                Cell(name) = cell;
            frame_.Link().ehHIDDevice_WriteFailure(0, 0);
        };
    };
    refuseAt("Green Offset", FakeDevice::Kind::Write);
    view_.MoveBar(254 - 26);
    EXPECT_EQ(view_.bar.position, 254 - (16 + 20 + 36) / 3);
    EXPECT_EQ(view_.Message(), "Failed to write Brightness");
    files_.files["/home/a.xml"] = InitFile();
    refuseAt("DE_TOP", FakeDevice::Kind::Read); // the try whether the board can be written
    prompts_.ExpectOpenFile("/home/a.xml");
    frame_.Open();
    EXPECT_EQ(Cell("DE_TOP"), Bytes{9});
}

TEST_F(VexlonTest, ARegisterThatCannotBeReadIsNamedBeforeItIsSaved)
{
    document_->controller().InitDevice("Vexlon");
    usb_->mute = {PlaceOf("Green Gain"), PlaceOf("CTL_1_MODE")};
    prompts_.ExpectMessage("failure reading Green Gain from device USB-HID Device. Aborting read.");
    Start("Vexlon", "Vexlon", {{"Blue Gain", 77}});
    const std::string question = "These registers could not be read from the board:\n\nGreen Gain\nCTL_1_MODE\n\nThe "
                                 "file will hold what was last known of them. Save it anyway?";
    prompts_.ExpectSaveFile("/home/a.xml");
    prompts_.ExpectMessage(question, Answer::No);
    frame_.SaveAs();
    EXPECT_EQ(view_.Message(), "/home/a.xml was not saved.");
    EXPECT_FALSE(files_.files.contains("/home/a.xml"));
    usb_->mute.erase(PlaceOf("CTL_1_MODE"));
    prompts_.ExpectSaveFile("/home/a.xml");
    prompts_.ExpectMessage(
        question.substr(0, question.find("\nCTL_1_MODE")) + question.substr(question.find("\n\nThe")), Answer::Yes);
    frame_.SaveAs();
    EXPECT_NE(files_.files["/home/a.xml"].find("<Value>4D</Value>"), std::string::npos);
}

TEST_F(VexlonTest, ACommandWorksFromWhatTheBoardHolds)
{
    document_->controller().InitDevice("Vexlon");
    usb_->mute = {PlaceOf("CTL_1_MODE")};
    prompts_.ExpectMessage("failure reading CTL_1_MODE from device USB-HID Device. Aborting read.");
    Start("Vexlon", "Vexlon", {{"CTL_1_MODE", 0x25}});
    usb_->mute.clear();
    const Values pulse{{"CTL_1_MODE", 0x65}, {"CTL_1_MODE", 0x25}};
    Choose("ReSync");
    EXPECT_EQ(TakeWrites(), pulse);
    document_->controller().InitDevice("Vexlon"); // as another view may: the registers hold defaults again
    Choose("ReSync");
    EXPECT_EQ(TakeWrites(), pulse);
    RegisterObject& mode = *document_->controller().GetI2CRegisterByName("CTL_1_MODE");
    mode.value(0x0F); // of a file that was opened in the register window and not loaded
    Choose("ReSync");
    EXPECT_EQ(TakeWrites(), pulse);
    usb_->mute = {PlaceOf("CTL_1_MODE")};
    Choose("ReSync");
    EXPECT_EQ(TakeWrites(), Values{});
    EXPECT_EQ(view_.Message(), "Failed to read CTL_1_MODE");
    usb_->mute.clear();
    int writes = 0; // the second one does not reach the board
    usb_->onTransfer = [&](const FakeDevice::Transfer& transfer) {
        if (transfer.kind != FakeDevice::Kind::Write || ++writes != 2)
            return;
        Cell("CTL_1_MODE") = {0x65};
        frame_.Link().ehHIDDevice_WriteFailure(0, 0);
    };
    Choose("ReSync");
    TakeWrites();
    Choose("ReSync");
    EXPECT_EQ(TakeWrites(), pulse);
}

TEST_F(VexlonTest, EditsThatWaitForALoadStayUntilTheUserGivesThemUp)
{
    Start("Vexlon-Fx_Channel1", "Vexlon-Fx", {{"Red Gain", 30}});
    files_.files["/home/a.xml"] = InitFile();
    const auto gain = document_->controller().GetI2CRegisterByName("Red Gain");
    gain->value(99);
    const auto expectKept = [&] {
        EXPECT_TRUE(gain->IsDirty());
        EXPECT_EQ(gain->value(), 99);
    };
    Select("Red Gain");
    EXPECT_EQ(view_.bar.position, 254 - 30); // the bar shows what the board holds
    expectKept();
    document_->controller().GetI2CRegisterByName("DE_CNT LSB")->value(8);
    frame_.CommFailure();
    Select("Contrast"); // everything was read again
    EXPECT_EQ(view_.bar.position, 254 - 30 / 3);
    EXPECT_EQ(view_.panels["Resolution"], "0x0");
    expectKept();
    mainView_.dropsEdits = false;
    frame_.NodeClicked("Vexlon-Fx_Channel2");
    EXPECT_EQ(view_.node, "Vexlon-Fx_Channel1");
    prompts_.ExpectOpenFile("/home/a.xml");
    frame_.Open();
    EXPECT_EQ(TakeWrites(), Values{});
    expectKept();
    mainView_.dropsEdits = true;
    prompts_.ExpectOpenFile("/home/none.xml");
    prompts_.ExpectMessage("Unable to open file /home/none.xml. See TarvexError.log for details");
    frame_.Open();
    EXPECT_FALSE(gain->IsDirty());
}

TEST_F(VexlonTest, EscapeEndsTheFirstReadWithoutAnotherOne)
{
    wait_.cancelled = true;
    Start("Vexlon", "Vexlon");
    EXPECT_EQ(view_.Message(), "Reading was stopped with Escape.");
    wait_.cancelled = false;
    Select("Contrast");
    EXPECT_TRUE(usb_->transfers.empty());
}

TEST_F(VexlonTest, GainAnswersHoldForTheirChannelOnly)
{
    Start("Vexlon-Fx_Channel1", "Vexlon-Fx", {{"Red Gain", 100}, {"Green Gain", 100}, {"Blue Gain", 250}});
    Select("Contrast"); // 150 at 104
    prompts_.ExpectMessage(kGainQuestion, Answer::No);
    view_.MoveBar(94);
    EXPECT_EQ(prompts_.messages.back().helpTopic, 524288);
    EXPECT_EQ(view_.bar.position, 104);
    view_.MoveBar(93);
    EXPECT_EQ(TakeWrites(), Values{});
    prompts_.ExpectMessage("Please select a Leaf node in the tree.");
    frame_.NodeClicked(view_.node = "Vexlon-Fx");
    EXPECT_EQ(view_.node, "Vexlon-Fx_Channel1");
    frame_.NodeClicked("Vexlon-Fx_Channel2");
    prompts_.ExpectMessage(kGainQuestion, Answer::Yes);
    view_.MoveBar(94);
    EXPECT_EQ(TakeWrites(), (Values{{"Red Gain", 110}, {"Green Gain", 110}, {"Blue Gain", 254}}));
}

TEST_F(VexlonTest, CommandsStepTheirRegisters)
{
    Start("Vexlon", "Vexlon",
          {{"Hsync output pulsewidth", 247}, {"CTL_1_MODE", 0x0F}, {"PLL Div MSB", 254}, {"PLL Div LSB", 0xF0}});
    Choose("ReSync");
    EXPECT_EQ(TakeWrites(), (Values{{"CTL_1_MODE", 0x4F}, {"CTL_1_MODE", 0x0F}}));
    prompts_.ExpectMessage("Increasing the HSync pulse width is only available when the Horizontal Position is the "
                           "selected configuration element");
    Choose("IncreaseHSyncPulseWidth");
    Select("Horizontal Position");
    Choose("IncreaseHSyncPulseWidth");
    EXPECT_EQ(TakeWrites(), (Values{{"Hsync output pulsewidth", 255}}));
    EXPECT_EQ(journal_.back(), "main: UpdateUI 1 Hsync output pulsewidth");
    Select("Fine Tune");
    Choose("PLL_MSBIncrement");
    EXPECT_EQ(TakeWrites(), (Values{{"PLL Div MSB", 255}, {"PLL Div LSB", 0x00}}));
    prompts_.ExpectMessage("Fine Tune MSB Register cannot be incremented above 255");
    Choose("PLL_MSBIncrement");
    Choose("PLL_MSBDecrement");
    EXPECT_EQ(TakeWrites(), (Values{{"PLL Div MSB", 254}, {"PLL Div LSB", 0xF0}}));
}

TEST_F(VexlonTest, AFileIsAppliedOnlyToAWritablePreset)
{
    Start("Vexlon", "Vexlon", {{"DE_TOP", 254}, {"Red Gain", 100}});
    prompts_.ExpectSaveFile("/home/a.xml");
    frame_.SaveAs();
    const auto asLink =
        std::exchange(usb_->onTransfer, [this](const auto&) { Cell("DE_TOP") = {254}; }); // whatever is written
    prompts_.ExpectOpenFile("/home/a.xml");
    prompts_.ExpectMessage("You must select one of the writable presets (0-2) on the rotary encoder to apply the file "
                           "settings");
    frame_.Open();
    EXPECT_EQ(TakeWrites(), (Values{{"DE_TOP", 253}, {"DE_TOP", 254}}));
    usb_->onTransfer = asLink;
    files_.files["/home/other.xml"] = InitFileBuilder().Text(); // of another board
    TakeWrites();
    prompts_.ExpectOpenFile("/home/other.xml");
    prompts_.ExpectMessage("Unable to open file /home/other.xml. See TarvexError.log for details");
    frame_.Open();
    EXPECT_EQ(TakeWrites(), Values{});
    prompts_.ExpectOpenFile("/home/none.xml");
    prompts_.ExpectMessage("Unable to open file /home/none.xml. See TarvexError.log for details");
    frame_.Open();
    EXPECT_EQ(Cell("DE_TOP"), Bytes{254});
    Cell("Red Gain") = {1};
    usb_->mute = {PlaceOf("Green Gain"), PlaceOf("Blue Gain")};
    prompts_.ExpectOpenFile("/home/a.xml");
    prompts_.ExpectMessage("error writing register to Vexlon");
    prompts_.ExpectMessage("error writing register to Vexlon");
    frame_.Open();
    EXPECT_EQ(Cell("Red Gain"), Bytes{100});
    EXPECT_EQ(Cell("DE_TOP"), Bytes{254}); // it stands behind the ones that fail
    EXPECT_EQ(view_.Message(), "Not everything in /home/a.xml reached the board. Open it again.");
    usb_->mute.clear();
    view_.panels["Refresh"] = "60Hz";
    prompts_.ExpectOpenFile("/home/a.xml");
    frame_.Open();
    EXPECT_EQ(view_.panels["Refresh"], " "); // the file's oscillator setting does not tell it
}

TEST_F(VexlonTest, AChannelThatDoesNotAnswerGivesWayToTheLastOne)
{
    Start("Vexlon-Fx_Channel1", "Vexlon-Fx", kMode1024);
    Choose("Refresh0_5");
    for (const std::set<std::int32_t>& dead : {std::set{0x0A62}, std::set{0x0A61, 0x0A62}}) {
        usb_->deadIds = dead;
        prompts_.ExpectMessage("Unable to establish communication with Vexlon-Fx_Channel2");
        prompts_.ExpectMessage("Unable to connect to Vexlon-Fx_Channel2. Restoring last good target.");
        frame_.NodeClicked("Vexlon-Fx_Channel2");
        EXPECT_EQ(document_->controller().deviceName(), "Vexlon-Fx_Channel1");
        EXPECT_EQ(view_.disabled.contains("File"), dead.size() == 2);
        EXPECT_EQ(view_.panels["Refresh"], "75Hz");
    }
    EXPECT_EQ(view_.node, "Vexlon-Fx_Channel1");
    EXPECT_EQ(errors_.entries.back().number, 201);
    EXPECT_EQ(errors_.entries.back().source, "Vexlon_Wizard::TreeView1.NodeClick");
}

TEST_F(VexlonTest, KestraNeedsAChannelBeforeAnElementCanBeAdjusted)
{
    Start("Kestra-Fx", "Kestra-Fx");
    EXPECT_EQ(view_.Message(), "Please select a Leaf node in the tree.");
    prompts_.ExpectMessage("Please select a Leaf node in the tree.");
    frame_.NodeClicked("Destination 1");
    frame_.NodeClicked("Vexlon-Fx_Channel2");
    EXPECT_TRUE(view_.barEnabled);
    view_.panels["Refresh"] = "60Hz";
    usb_->mute = {PlaceOf("Red Gain")};
    Cell("Blue Gain") = {77};
    prompts_.ExpectMessage("failure reading Red Gain from device USB-HID Device. Aborting read.");
    frame_.NodeClicked("Vexlon-Fx_Channel3");
    EXPECT_EQ(document_->controller().deviceName(), "Vexlon-Fx_Channel3");
    EXPECT_EQ(view_.panels["Refresh"], " ");
    EXPECT_EQ(document_->controller().GetI2CRegisterByName("Blue Gain")->value(), 77); // behind the one that failed
}

TEST_F(VexlonTest, ABoardThatComesAfterTheStartIsReadBeforeItsFirstElement)
{
    usb_->connected = false;
    usb_->deadIds = {0x0A51};
    prompts_.ExpectMessage("Unable to establish communication with Vexlon");
    Start("Vexlon", "Vexlon", {{"Red Gain", 30}, {"Green Gain", 30}, {"Blue Gain", 30}});
    usb_->deadIds.clear();
    Select("Contrast");
    EXPECT_EQ(view_.bar.position, 254 - 30);
    frame_.CommFailure();
    Fill({{"Red Gain", 50}, {"Green Gain", 50}, {"Blue Gain", 80}}); // it had no power
    view_.MoveBar(254 - 51);
    EXPECT_EQ(Cell("Red Gain"), Bytes{41}); // from 60 by 9
}

}

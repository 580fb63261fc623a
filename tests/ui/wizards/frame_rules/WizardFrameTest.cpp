#include "ui/wizards/frame/WizardFrame.h"

#include "comm/HIDDevice.h"
#include "support/ExitCode.h"
#include "support/ExpectError.h"
#include "support/FakeHidServices.h"
#include "support/FakeWizardFrameView.h"
#include "ui/wizards/frame/BarRules.h"
#include "ui/wizards/frame/WizardFixture.h"

namespace tarvex {

namespace {

class WizardFrameTest : public WizardTest {
protected:
    WizardFrameTest()
    {
        view_.barChanged = [this] { frame_.BarChanged(); };
        // The fake board raises no events: what it does not answer is told as the USB link would.
        usb_->onTransfer = [this](const FakeDevice::Transfer& transfer) {
            if (!usb_->mute.contains({transfer.baseAddress, transfer.parameterId}))
                return;
            if (transfer.kind == FakeDevice::Kind::Read)
                frame_.Link().ehHIDDevice_ReadFailure(0, 0);
            else
                frame_.Link().ehHIDDevice_WriteFailure(0, 0);
        };
        EXPECT_TRUE(frame_.Init(*document_, nullptr));
    }
    ~WizardFrameTest() override { frame_.Unload(); }

    void Start(const std::string& element)
    {
        frame_.SetCurrentProduct("Vexlon");
        Select(element);
        usb_->transfers.clear();
        usb_->calls.clear();
    }
    void Select(const std::string& element)
    {
        view_.selected = element;
        frame_.ElementClicked(element);
    }
    bool MenusAreOff() const { return view_.disabled.contains("File") && view_.disabled.contains("Options"); }

    FakeWizardView self_{"wizard", script_};
    FakeWizardFrameView view_;
    TinyProduct product_;
    WizardFrame frame_{self_, view_, product_,
                       WizardServices{state_, files_, clock_, prompts_, errors_, wait_, [] { return nullptr; }}};
};

}

TEST(BarRules, RangeAndStepFollowTheBounds)
{
    const std::tuple<std::int32_t, ElementBounds, BarState, bool> cases[] = {
        {200, {0, 254}, {0, 254, 54, 25}, true},      {10, {15, 0}, {0, 15, 10, 1}, false},
        {0, {10, 0}, {0, 10, 0, 1}, false},           {2047, {2047, 1}, {1, 2047, 2047, 204}, false},
        {100, {100, 100}, {100, 100, 100, 1}, false},
    };
    for (const auto& [value, bounds, bar, reversed] : cases) {
        const BarSetting setting = SetRange(value, bounds, UsualLargeStep);
        EXPECT_EQ(setting.bar, bar) << value;
        EXPECT_EQ(setting.reversed, reversed) << value;
        EXPECT_EQ(ValueAt(setting.bar, setting.reversed, setting.bar.position), value);
    }
    ExpectError([] { SetRange(255, {0, 254}, UsualLargeStep); }, 12);
    ExpectError([] { SetRange(16, {15, 0}, UsualLargeStep); }, 12);
}

TEST(BarRules, KeysAreExchangedClampedAndBeepAtTheEnds)
{
    const std::tuple<BarKey, std::int32_t, BarKey, std::int32_t, bool> cases[] = {
        {BarKey::Right, 100, BarKey::Right, 100, true},
        {BarKey::Right, 99, BarKey::Right, 99, false},
        {BarKey::Left, 0, BarKey::Left, 0, true},
        {BarKey::PageDown, 1, BarKey::PageUp, 0, true},
        {BarKey::PageDown, 10, BarKey::PageUp, 10, false},
        {BarKey::PageUp, 91, BarKey::PageDown, 100, true},
        {BarKey::PageUp, 90, BarKey::PageDown, 90, false},
        {BarKey::Up, 50, BarKey::Down, 50, false},
        {BarKey::Down, 9, BarKey::Up, 0, true},
        {BarKey::Other, 100, BarKey::Other, 100, false},
    };
    for (const auto& [key, position, passedOn, clamped, beeps] : cases) {
        const BarKeyEffect effect = PressBarKey(key, {0, 100, position, 10});
        EXPECT_EQ(std::tie(effect.passedOn, effect.position, effect.beeps), std::tie(passedOn, clamped, beeps));
    }
    EXPECT_EQ(CutDecimals("14.375 ns"), "14.37");
    EXPECT_EQ(CutDecimals("14 ns"), "14 ns");
}

TEST_F(WizardFrameTest, SelectingReadsAndWritesNothing)
{
    Start("Gain");
    EXPECT_EQ(view_.bar.position, 54);
    EXPECT_EQ(view_.valueText, "54");
    EXPECT_EQ(view_.description, "Amplifies");
    EXPECT_EQ(view_.tip, "{\\rtf1 gain}");
    EXPECT_EQ(view_.connection, "/prog/Images/connected_on_grey.jpg");
    Select("Tune");
    EXPECT_EQ(view_.tip, ""); // the board has no such property
    EXPECT_EQ(Writes().size(), 0U);
    view_.selected = "Gain"; // marked, but not read yet
    view_.MoveBar(3);
    EXPECT_EQ(Writes().size(), 0U);
}

TEST_F(WizardFrameTest, AChangeWritesTheValueAndTellsTheMainWindow)
{
    Start("Gain");
    journal_.clear();
    view_.MoveBar(64);
    EXPECT_EQ(Writes(), (std::vector<Bytes>{{190}}));
    EXPECT_EQ(view_.valueText, "64");
    EXPECT_EQ(journal_, (std::vector<std::string>{"main: UpdateUI 2 Gain"}));
}

TEST_F(WizardFrameTest, UndoGoesBackOneStep)
{
    const std::pair<std::vector<std::int32_t>, std::uint8_t> cases[] = {{{11, 12}, 11}, {{11}, 10}};
    for (const auto& [moves, undone] : cases) {
        usb_->memory[kTune] = {10};
        Start("Tune");
        for (const std::int32_t position : moves)
            view_.MoveBar(position);
        EXPECT_FALSE(view_.disabled.contains("Undo"));
        frame_.Undo();
        EXPECT_EQ(usb_->memory[kTune], Bytes{undone});
        EXPECT_TRUE(view_.disabled.contains("Undo"));
        frame_.Undo();
        EXPECT_EQ(view_.Message(), "Nothing to undo");
        EXPECT_EQ(view_.bar.position, undone);
    }
    product_.Host().OfferUndo(-3);
    frame_.Undo();
    EXPECT_EQ(product_.undone, -3);
    EXPECT_TRUE(view_.disabled.contains("Undo"));
}

TEST_F(WizardFrameTest, AValueOutsideItsBoundsTurnsTheBarOff)
{
    usb_->memory[kTune] = {16};
    Start("Tune");
    EXPECT_EQ(view_.bar, kUnusableBar);
    EXPECT_FALSE(view_.barEnabled);
    EXPECT_EQ(view_.Message(), "The value 16 lies outside the range of Tune.");
    EXPECT_EQ(errors_.entries.back().number, 12);
    view_.MoveBar(0);
    EXPECT_EQ(Writes().size(), 0U);
    Select("Gain");
    EXPECT_TRUE(view_.barEnabled);
}

TEST_F(WizardFrameTest, ALostBoardIsShownWithinOneTransferAndComesBackWithTheNext)
{
    FakeHidServices hid;
    FakeHidBoard& board = *hid.boards.front();
    board.known.attributes = {0x12C5, 0x0A51, 0x0102};
    link_ = std::make_shared<HIDDevice>(hid, packetLog_, prompts_);
    document_->SelectCommLink("Demo");
    document_->SelectCommLink("USB-HID Device");
    link_->connect(0x0A51, 0x12C5);
    Start("Gain");
    EXPECT_EQ(view_.connection, "/prog/Images/connected_on_grey.jpg");
    view_.MoveBar(200);
    const std::size_t sent = board.sent.size();
    board.plugged = false;
    view_.MoveBar(199);
    EXPECT_EQ(board.sent.size(), sent + 1);
    EXPECT_EQ(errors_.entries.back().number, 201);
    EXPECT_EQ(view_.valueText, "Communication Failure");
    EXPECT_TRUE(view_.alert);
    EXPECT_EQ(view_.tip, "{\\rtf1 lost}");
    EXPECT_EQ(view_.connection, "/prog/Images/brokenlink_on_grey.jpg");
    EXPECT_TRUE(MenusAreOff());
    view_.MoveBar(198); // tries to connect, in vain and without a box
    EXPECT_TRUE(view_.alert);
    board.plugged = true;
    view_.MoveBar(197);
    EXPECT_EQ(board.memory.begin()->second, Bytes{57});
    EXPECT_FALSE(MenusAreOff());
    EXPECT_EQ(view_.valueText, "197");
    EXPECT_EQ(view_.tip, "{\\rtf1 gain}");
    link_ = usb_;
}

TEST_F(WizardFrameTest, ABoardThatRefusesOneTransferStaysConnected)
{
    Start("Gain");
    view_.EnableEntry("Options", false); // as a product may, beside what the link does
    frame_.CommFailure();
    view_.EnableEntry("File", true);
    EXPECT_TRUE(MenusAreOff());
    Select("Gain");
    EXPECT_EQ(view_.disabled, (std::set<std::string>{"Options", "Undo"}));
    usb_->mute = {kGain};
    const std::int32_t before = view_.bar.position;
    view_.MoveBar(55);
    EXPECT_EQ(view_.bar.position, before);
    EXPECT_EQ(view_.valueText, std::to_string(before));
    EXPECT_EQ(view_.Message(), "Failed to write Gain");
    EXPECT_FALSE(MenusAreOff());
    Select("Gain");
    EXPECT_EQ(view_.Message(), "Failed to read Gain");
    EXPECT_EQ(errors_.entries.back().number, ObjectError(1));
    EXPECT_FALSE(view_.barEnabled);
    EXPECT_TRUE(frame_.ConfirmClose()); // a failed write leaves nothing to save
}

TEST_F(WizardFrameTest, ADeadLinkAtTheStartIsToldAndShown)
{
    usb_->verifies = usb_->canConnect = usb_->connected = false;
    prompts_.ExpectMessage("Unable to establish communication with Vexlon");
    frame_.SetCurrentProduct("Vexlon");
    EXPECT_EQ(prompts_.messages.back().title, "Communication Failure");
    EXPECT_TRUE(prompts_.messages.back().helpTopic);
    EXPECT_TRUE(MenusAreOff());
    EXPECT_TRUE(usb_->transfers.empty());
}

TEST_F(WizardFrameTest, SavesOpensAndAsksBeforeClosing)
{
    Start("Gain");
    view_.MoveBar(55);
    prompts_.ExpectMessage("Save  file before closing", Answer::Yes);
    prompts_.ExpectSaveFile(std::nullopt);
    EXPECT_FALSE(frame_.ConfirmClose());
    prompts_.ExpectSaveFile("/prog/Tarvex.xml");
    prompts_.ExpectMessage("/prog/Tarvex.xml is a reserved complete filename. Please select another file.");
    frame_.SaveAs();
    prompts_.ExpectSaveFile("/home/a.xml");
    frame_.Save(); // no name yet
    EXPECT_EQ(view_.Message(), "/home/a.xml saved.");
    EXPECT_EQ(view_.title, "Tarvex-/home/a.xml");
    EXPECT_NE(files_.files["/home/a.xml"].find("<Value>C7</Value>"), std::string::npos);
    EXPECT_TRUE(frame_.ConfirmClose());
    usb_->memory[kGain] = {100};
    prompts_.ExpectOpenFile("/home/a.xml");
    frame_.Open();
    EXPECT_EQ(view_.bar.position, 154); // read again
    EXPECT_EQ(view_.Message(), "Opened file: /home/a.xml");
    view_.MoveBar(56);
    prompts_.ExpectMessage("Save /home/a.xml file before closing", Answer::No);
    mainView_.confirmsClose = false; // its own unsaved edits would be lost, too
    frame_.Quit();
    mainView_.confirmsClose = true;
    prompts_.ExpectMessage("Save /home/a.xml file before closing", Answer::No);
    EXPECT_EQ(ExitCodeOf([this] { frame_.Quit(); }), 0);
    EXPECT_EQ(usb_->calls.back(), "Disconnect");
}

TEST_F(WizardFrameTest, MissingHelpTipsAreSaid)
{
    files_.files.erase("/prog/HelpTips/gain.rtf");
    Start("Gain");
    EXPECT_EQ(view_.tip, "Unable to locate the default Help Tip /prog/HelpTips/defaultHelpTip.rtf");
    EXPECT_NE(std::find(view_.messages.begin(), view_.messages.end(), "Unable to find Help Tip file gain.rtf"),
              view_.messages.end());
    ASSERT_FALSE(errors_.entries.empty());
    EXPECT_EQ(errors_.entries.back().description, "Unable to find Help Tip file gain.rtf");
    files_.files["/prog/HelpTips/gain.rtf"] = std::string(std::size_t{10} << 20, '{');
    Select("Gain");
    EXPECT_EQ(view_.tip.find("Unable to read the Help Tip"), 0U);
}

}

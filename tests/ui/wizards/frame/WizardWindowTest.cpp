#include "ui/wizards/frame/WizardWindow.h"
#include "ui/wizards/frame/WizardTree.h"

#include "support/qt/QtTestTools.h"
#include "ui/common/QtWait.h"
#include "ui/wizards/frame/RtfDocument.h"
#include "ui/wizards/frame/WizardFixture.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QWindow>

namespace tarvex {

namespace {

/// The window of the tiny product on a board that takes its time. Its controls are found by name only.
class WizardWindowTest : public WizardTest {
protected:
    WizardWindowTest()
    {
        UncaughtErrors::Install(&errors_, &prompts_);
        EXPECT_TRUE(window_.Init(document_->controller(), usb_, *document_, nullptr));
        window_.SetCurrentProduct("Vexlon");
        window_.ShowView();
        bar_ = window_.findChild<QScrollBar*>("HScroll1");
        list_ = window_.findChild<QListWidget*>("ListView1");
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
        usb_->transfers.clear();
    }
    ~WizardWindowTest() override
    {
        window_.Unload();
        UncaughtErrors::Install(nullptr, nullptr);
        ExitState::Reset();
        RunProgram([] {}); // after a request to end the program no loop runs until the main one has
    }

    QAction& Entry(const char* name) { return *window_.findChild<QAction*>(name); }
    QString Text(const char* label) { return window_.findChild<QLabel*>(label)->text(); }
    QPoint OnWindow(QPoint onBar) { return bar_->mapTo(&window_, onBar); }
    QPoint Handle()
    {
        QStyleOptionSlider option;
        option.initFrom(bar_);
        option.minimum = bar_->minimum();
        option.maximum = bar_->maximum();
        option.sliderPosition = option.sliderValue = bar_->value();
        option.pageStep = bar_->pageStep();
        option.orientation = Qt::Horizontal;
        return bar_->style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, bar_).center();
    }
    void Move(QPoint onBar) { QTest::mouseMove(window_.windowHandle(), OnWindow(onBar)); }

    BusyState busy_;
    QtWait pump_{busy_};
    WizardWindow window_{std::make_unique<TinyProduct>(),
                         WizardWindowServices{state_, files_, clock_, prompts_, errors_, wait_, busy_}};
    QScrollBar* bar_ = nullptr;
    QListWidget* list_ = nullptr;
};

}

TEST_F(WizardWindowTest, KeysMoveTheBarAndEachWritesOnce)
{
    EXPECT_EQ(bar_->value(), 54);
    bar_->setFocus();
    const std::pair<Qt::Key, int> cases[] = {{Qt::Key_Up, 55},   {Qt::Key_Right, 56},     {Qt::Key_Left, 55},
                                             {Qt::Key_Down, 54}, {Qt::Key_PageUp, 79},    {Qt::Key_PageDown, 54},
                                             {Qt::Key_End, 254}, {Qt::Key_PageDown, 229}, {Qt::Key_Home, 0}};
    std::size_t writes = 0;
    for (const auto& [key, position] : cases) {
        QTest::keyClick(bar_, key);
        EXPECT_EQ(bar_->value(), position) << key;
        EXPECT_EQ(usb_->memory[kGain][0], 254 - position);
        EXPECT_EQ(Writes().size(), ++writes);
    }
    QTest::keyClick(bar_, Qt::Key_PageDown);
    EXPECT_EQ(Writes().size(), writes);
    EXPECT_TRUE(bar_->hasFocus());
}

TEST_F(WizardWindowTest, ADragLeavesTheBoardWhereTheMouseLeftTheBar)
{
    int depth = 0;
    int changes = 0;
    QObject::connect(bar_, &QScrollBar::valueChanged, bar_, [&] { ++changes; });
    const QPoint start = Handle();
    const QPoint last = start + QPoint(90, 0);
    // Input that arrives while the board is at work is swallowed, the end of the drag included.
    usb_->onTransfer = [&](const FakeDevice::Transfer&) {
        EXPECT_EQ(++depth, 1);
        if (Writes().size() == 5) {
            Move(last);
            QTest::mouseRelease(window_.windowHandle(), Qt::LeftButton, {}, OnWindow(last));
        }
        pump_.Pause(std::chrono::milliseconds(2));
        --depth;
    };
    QTest::mousePress(window_.windowHandle(), Qt::LeftButton, {}, OnWindow(start));
    ASSERT_TRUE(bar_->isSliderDown());
    for (int x = 1; x <= 40 && Writes().size() < 5; ++x)
        Move(start + QPoint(2 * x, 0));
    EXPECT_TRUE(RunUntil([&] { return !bar_->isSliderDown() && !busy_.IsBusy(); }));
    EXPECT_LE(std::abs(Handle().x() - last.x()), 2);
    EXPECT_EQ(usb_->memory[kGain][0], 254 - bar_->value());
    EXPECT_LE(Writes().size(), static_cast<std::size_t>(changes));
    EXPECT_EQ(Text("StatusText"), QString::number(bar_->value()));
}

TEST_F(WizardWindowTest, AChangeDuringATransferWaitsForItsEnd)
{
    int depth = 0;
    usb_->onTransfer = [&](const FakeDevice::Transfer&) {
        EXPECT_EQ(++depth, 1);
        if (Writes().size() == 1) {
            bar_->setValue(70); // as a held arrow repeats
            bar_->setValue(71);
        }
        --depth;
    };
    bar_->setValue(60);
    EXPECT_TRUE(RunUntil([&] { return Writes().size() == 2; }));
    EXPECT_EQ(Writes(), (std::vector<Bytes>{{194}, {183}}));
}

TEST_F(WizardWindowTest, ClicksOnElementsReadAndNeverWrite)
{
    const auto click = [this](int row) {
        QTest::mouseClick(list_->viewport(), Qt::LeftButton, {}, list_->visualItemRect(list_->item(row)).center());
    };
    click(1);
    EXPECT_EQ(bar_->maximum(), 15);
    EXPECT_EQ(Text("Label1"), "Tune");
    click(1);
    click(0);
    list_->setFocus();
    QTest::keyClick(list_, Qt::Key_Return);
    EXPECT_EQ(usb_->Parameters(FakeDevice::Kind::Read), (std::vector<std::int32_t>{0x21, 0x21, 0x20, 0x20}));
    EXPECT_EQ(Writes().size(), 0U);
    EXPECT_EQ(Text("Description"), "Amplifies");
}

TEST_F(WizardWindowTest, MenusShowWhatTheProductDescribes)
{
    EXPECT_EQ(Entry("SaveAs").text(), "&Save As");
    EXPECT_EQ(Entry("Undo").text(), "Undo last change");
    EXPECT_EQ(window_.findChild<QMenu*>("Resolution")->title(), "Set Resolution");
    Entry("Resolution0_1").trigger();
    EXPECT_FALSE(Entry("Resolution0_1").isChecked()); // the product checks it
    window_.CommFailure("gone");
    EXPECT_EQ(Text("StatusText"), "Communication Failure");
    {
        const BusyGuard work(busy_);
    }                        // does not bring it back
    Entry("Save").trigger(); // nothing is asked: the menu is off
    EXPECT_FALSE(window_.findChild<QMenu*>("File")->menuAction()->isEnabled());
    list_->setFocus();
    QTest::keyClick(list_, Qt::Key_Return);
    EXPECT_TRUE(window_.findChild<QMenu*>("File")->menuAction()->isEnabled());
}

TEST(WizardTree, TheMarkStaysOnTheTargetUntilAnotherIsChosen)
{
    WizardTree tree(nullptr);
    tree.ShowNodes({{"root", "Root", {{"a", "First"}, {"b", "Second"}}}});
    tree.Select("a");
    std::vector<std::string> chosen;
    const auto heard = tree.NodeClicked.Subscribe([&](const std::string& key) { chosen.push_back(key); });
    const auto marked = [&] { return tree.selectedItems().value(0)->text(0); };
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::keyClick(&tree, Qt::Key_R);
    EXPECT_EQ(marked(), "First");
    EXPECT_TRUE(chosen.empty());
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_EQ(chosen, std::vector<std::string>{"b"});
}

TEST(WizardTree, ATickChoosesNoNode)
{
    WizardTree tree(nullptr);
    tree.ShowNodes({{"root", "Root", {{"leaf", "A connector"}}}});
    tree.ShowChecks(true);
    tree.show();
    std::vector<std::string> clicked;
    const auto heard = tree.NodeClicked.Subscribe([&](const std::string& key) { clicked.push_back(key); });
    const QRect leaf = tree.visualItemRect(tree.topLevelItem(0)->child(0));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {leaf.left() + 8, leaf.center().y()});
    EXPECT_EQ(tree.Checked(), std::vector<std::string>{"leaf"});
    EXPECT_TRUE(clicked.empty());
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {leaf.left() + 40, leaf.center().y()});
    EXPECT_EQ(clicked, std::vector<std::string>{"leaf"});
}

TEST_F(WizardWindowTest, TheCloseBoxAsksAsQuitDoes)
{
    bar_->setValue(60);
    prompts_.ExpectMessage("Save  file before closing", Answer::Yes);
    prompts_.ExpectSaveFile(std::nullopt);
    EXPECT_FALSE(window_.close());
    EXPECT_TRUE(window_.isVisible());
    prompts_.ExpectMessage("Save  file before closing", Answer::No);
    EXPECT_EQ(RunProgram([this] { window_.close(); }), 0);
    EXPECT_FALSE(usb_->connected);
}

TEST_F(WizardWindowTest, EverythingThatTakesTheKeyboardHasAName)
{
    for (const QWidget* each : window_.findChildren<QWidget*>())
        if ((each->focusPolicy() & Qt::TabFocus) != 0 && each->isVisible()) {
            EXPECT_FALSE(each->accessibleName().isEmpty()) << each->metaObject()->className();
        }
    EXPECT_EQ(bar_->accessibleName(), "Gain");
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    list_->setFocus();
    QTest::keyClick(list_, Qt::Key_Tab);
    EXPECT_TRUE(bar_->hasFocus());
}

TEST(RtfDocument, KeepsColoursThatCanBeRead)
{
    QTextDocument document;
    ShowRtf(document, "{\\rtf1{\\colortbl;\\red0\\green0\\blue0;}\\cf1 black {\\b bold}\\par\\par end\\par}",
            Qt::black);
    EXPECT_EQ(document.toPlainText(), "black bold\n\nend");
    EXPECT_FALSE(QTextCursor(document.firstBlock()).charFormat().hasProperty(QTextFormat::ForegroundBrush));
    ShowRtf(document, "{\\rtf1" + std::string(100000, '{'), Qt::white);
    EXPECT_EQ(document.toPlainText(), "This Help Tip is too large to be shown.");
}

}

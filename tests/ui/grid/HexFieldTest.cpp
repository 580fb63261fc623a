#include "ui/advanced/HexField.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

namespace tarvex {
namespace {

struct HexFieldTest : ::testing::Test {
    QWidget window;
    HexField field{&window};
    QLineEdit& box = *field.findChild<QLineEdit*>("txtInput");
    int changes = 0;
    Subscription heard = field.Change.Subscribe([this] { ++changes; });

    HexFieldTest()
    {
        field.MaxValue(255);
        field.HexText("1F");
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        box.setFocus();
        box.setCursorPosition(2);
        changes = 0;
    }

    void Choose(const char* name) { field.findChild<QAction*>(name)->trigger(); }

    void Commit(const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&box, &event);
    }
};

TEST_F(HexFieldTest, RefusesKeysThatWouldLeaveNoNumberWithinTheLimits)
{
    QTest::keyClicks(&box, "0g-. ");
    EXPECT_EQ(field.HexText(), "1F");
    EXPECT_EQ(changes, 0);
    QTest::keyClick(&box, Qt::Key_Backspace);
    QTest::keyClicks(&box, "a");
    EXPECT_EQ(field.HexText(), "1a");
    EXPECT_EQ(changes, 2);
    field.MinValue(16);
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(field.HexText(), "1a");
}

TEST_F(HexFieldTest, LeavesZeroAndChangesTwiceWhenItIsEmptied)
{
    const std::function<void()> ways[] = {
        [this] { QTest::keyClick(&box, Qt::Key_Delete); },
        [this] { Choose("mnuPopupCut"); },
        [this] { Choose("mnuPopupDelete"); },
        [this] { field.HexText("&H"); },
    };
    for (const auto& empty : ways) {
        field.HexText("1F");
        box.selectAll();
        changes = 0;
        empty();
        EXPECT_EQ(field.HexText(), "0");
        EXPECT_EQ(changes, 2);
    }
}

TEST_F(HexFieldTest, JudgesWhateverComesInWithoutATypedKey)
{
    const std::pair<const char*, std::function<void(const QString&)>> ways[] = {
        {"paste",
         [this](const QString& text) {
             QApplication::clipboard()->setText(text);
             QTest::keyClick(&box, Qt::Key_Insert, Qt::ShiftModifier);
         }},
        {"input method", [this](const QString& text) { Commit(text); }},
    };
    for (const auto& [name, enter] : ways) {
        for (const char* bad : {"xyz", "123"}) {
            field.HexText("1F");
            box.selectAll();
            enter(bad);
            EXPECT_EQ(field.HexText(), "1F") << name << " " << bad;
        }
        field.HexText("0");
        box.selectAll();
        enter("7");
        EXPECT_TRUE(box.text().contains('7')) << name;
    }
}

TEST_F(HexFieldTest, OffersItsMenuButNoEditsWhenLocked)
{
    int reads = 0;
    const auto read = field.ReadRegister.Subscribe([&] { ++reads; });
    field.Locked(true);
    QTest::keyClicks(&box, "7");
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    Choose("mnuPopupCut");
    EXPECT_EQ(field.HexText(), "1F");
    auto& menu = *field.findChild<QMenu*>("mnuPopup");
    QTest::mousePress(&box, Qt::RightButton);
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    Choose("mnuReadSingleRegister");
    EXPECT_EQ(reads, 1);
}

TEST_F(HexFieldTest, SelectsItsTextWithTheFocusAndKeepsASelectionOverTheMenu)
{
    box.clearFocus();
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_EQ(box.selectedText(), "1F");
    box.setSelection(1, 1);
    Choose("mnuPopupCut");
    EXPECT_EQ(field.HexText(), "1");
    EXPECT_EQ(QApplication::clipboard()->text(), "F");
}

TEST_F(HexFieldTest, TellsAChangeOfASetTextOnceAndNoneForTheSame)
{
    for (const char* text : {"&HA0", "", "A0"})
        field.HexText(text);
    EXPECT_EQ(field.HexText(), "A0");
    EXPECT_EQ(changes, 1);
    EXPECT_THROW(field.MinValue(-1), Error);
    EXPECT_EQ(field.MinValue(), 0);
}

}
}

#include "ui/advanced/HexField.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
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
    const std::function<void(const char*)> ways[] = {
        [this](const char* text) { // a paste
            QApplication::clipboard()->setText(text);
            QTest::keyClick(&box, Qt::Key_Insert, Qt::ShiftModifier);
        },
        [this](const char* text) { // an input method
            QInputMethodEvent event;
            event.setCommitString(text);
            QApplication::sendEvent(&box, &event);
        },
    };
    for (const auto& enter : ways) {
        for (const char* text : {"xyz", "123", "7"}) {
            field.HexText("1F");
            box.selectAll();
            enter(text);
            EXPECT_EQ(field.HexText(), text == std::string("7") ? "7" : "1F") << text;
        }
    }
}

TEST_F(HexFieldTest, OffersItsMenuButNoEditsWhenLocked)
{
    int reads = 0;
    const auto read = field.ReadRegister.Subscribe([&] { ++reads; });
    field.Locked(true);
    box.selectAll();
    QTest::keyClicks(&box, "7");
    QTest::keyClick(&box, Qt::Key_Delete);
    Choose("mnuPopupCut");
    EXPECT_EQ(field.HexText(), "1F");
    Choose("mnuReadSingleRegister");
    EXPECT_EQ(reads, 1);
}

}
}

#include "support/qt/QtTestTools.h"
#include "ui/common/BusyState.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QWindow>

namespace tarvex {

namespace {

/// A dialog with one of each control; input goes in at its native window, as the user's does.
class InputGateTest : public ::testing::Test {
protected:
    InputGateTest()
    {
        button.move(0, text.height());
        action.setShortcut(Qt::CTRL | Qt::Key_R);
        window.addAction(&action);
        QObject::connect(&action, &QAction::triggered, &window, [this] { ++shortcuts; });
        QObject::connect(&button, &QPushButton::clicked, &window, [this] { ++clicks; });
        window.open();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void TypeAndClick()
    {
        QTest::keyClick(Native(), 'a');
        QTest::keyClick(Native(), 'r', Qt::ControlModifier);
        QTest::mouseClick(Native(), Qt::LeftButton, {}, button.geometry().center());
    }

    void ExpectReceived(const QString& typed, int times)
    {
        EXPECT_EQ(text.text(), typed);
        EXPECT_EQ(clicks, times);
        EXPECT_EQ(shortcuts, times);
    }

    QWindow* Native() { return window.windowHandle(); }

    QDialog window;
    QLineEdit text{&window};
    QPushButton button{"Read", &window};
    QAction action;
    int clicks = 0;
    int shortcuts = 0;
    BusyState busy;
};

}

TEST_F(InputGateTest, SwallowsInputWhileWorkRunsAndRemembersEscape)
{
    {
        const BusyGuard guard(busy);
        TypeAndClick();
        EXPECT_FALSE(busy.Cancelled());
        QTest::keyClick(Native(), Qt::Key_Escape);
        EXPECT_TRUE(busy.Cancelled());
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isVisible());
    ExpectReceived("", 0);
    TypeAndClick();
    ExpectReceived("a", 1);
    const BusyGuard next(busy);
    EXPECT_FALSE(busy.Cancelled());
}

TEST_F(InputGateTest, CarriesOutARememberedCloseAfterTheSequence)
{
    QWidget ownWindow;
    ownWindow.show();
    {
        const BusyGuard guard(busy);
        QCloseEvent close;
        QSpontaneKeyEvent::setSpontaneous(&close);
        qApp->notify(Native(), &close);
        EXPECT_TRUE(ownWindow.close()); // what the program itself closes is not held back
    }
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(RunUntil([&] { return !window.isVisible(); }));
}

TEST_F(InputGateTest, LetsTheAnswerOfABoxThroughAndThenSwallowsAgain)
{
    const BusyGuard guard(busy);
    QDialog box;
    box.setObjectName("MessageBox");
    OnceShown<QDialog>("MessageBox", [](QDialog& shown) { QTest::keyClick(shown.windowHandle(), Qt::Key_Escape); });
    EXPECT_EQ(box.exec(), QDialog::Rejected);
    EXPECT_FALSE(busy.Cancelled()); // that Escape was the box's
    TypeAndClick();
    ExpectReceived("", 0);
}

}

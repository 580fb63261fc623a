#include "support/qt/QtTestTools.h"
#include "ui/common/BusyState.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

namespace tarvex {

namespace {

class RepeatingBar : public QScrollBar {
public:
    using QScrollBar::QScrollBar;
    using QScrollBar::repeatAction;
};

/// A window with one of each control; input goes in at its native window, as the user's does.
class InputGateTest : public ::testing::Test {
protected:
    InputGateTest()
    {
        auto* layout = new QVBoxLayout(&window);
        for (QWidget* widget : std::initializer_list<QWidget*>{&text, &button, &bar})
            layout->addWidget(widget);
        action.setShortcut(Qt::CTRL | Qt::Key_R);
        window.addAction(&action);
        QObject::connect(&action, &QAction::triggered, &window, [this] { ++shortcuts; });
        QObject::connect(&button, &QPushButton::clicked, &window, [this] { ++clicks; });
        window.show();
        text.setFocus();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void TypeAndClick()
    {
        QTest::keyClick(Native(), 'a');
        QTest::keyClick(Native(), 'r', Qt::ControlModifier);
        Mouse(QEvent::MouseButtonPress, button, button.rect().center());
        Mouse(QEvent::MouseButtonRelease, button, button.rect().center());
        QCoreApplication::processEvents();
    }

    void Mouse(QEvent::Type type, QWidget& widget, QPoint place)
    {
        const QPoint at = widget.mapTo(&window, place);
        if (type == QEvent::MouseButtonPress)
            QTest::mousePress(Native(), Qt::LeftButton, {}, at);
        else
            QTest::mouseRelease(Native(), Qt::LeftButton, {}, at);
    }

    static void AskToClose(QWidget& widget)
    {
        QCloseEvent event;
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(widget.windowHandle(), &event);
    }

    QWindow* Native() { return window.windowHandle(); }

    QWidget window;
    QLineEdit text{&window};
    QPushButton button{"Read", &window};
    RepeatingBar bar{Qt::Horizontal, &window};
    QAction action;
    int clicks = 0;
    int shortcuts = 0;
    BusyState busy;
};

}

TEST_F(InputGateTest, SwallowsInputWhileWorkRunsAndDeliversNothingLater)
{
    {
        const BusyGuard guard(busy);
        TypeAndClick();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(text.text(), "");
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(shortcuts, 0);

    TypeAndClick();
    EXPECT_EQ(text.text(), "a");
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(shortcuts, 1);
}

TEST_F(InputGateTest, RemembersEscapeForTheSequenceThatRuns)
{
    QTest::keyClick(Native(), Qt::Key_Escape);
    {
        const BusyGuard guard(busy);
        EXPECT_FALSE(busy.Cancelled());
        QTest::keyClick(Native(), 'a');
        EXPECT_FALSE(busy.Cancelled());
        QTest::keyClick(Native(), Qt::Key_Escape);
        EXPECT_TRUE(busy.Cancelled());
    }
    const BusyGuard next(busy);
    EXPECT_FALSE(busy.Cancelled());
}

TEST_F(InputGateTest, CarriesOutARememberedCloseAfterTheSequence)
{
    QWidget ownWindow;
    ownWindow.show();
    {
        const BusyGuard guard(busy);
        AskToClose(window);
        EXPECT_TRUE(ownWindow.close()); // what the program itself closes is not held back
    }
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(RunUntil([&] { return !window.isVisible(); }));
}

TEST_F(InputGateTest, LetsTheAnswerOfABoxThroughAndThenSwallowsAgain)
{
    const BusyGuard guard(busy);
    QDialog box;
    QPushButton yes("Yes", &box);
    yes.setFocus();
    box.setObjectName("MessageBox");
    QObject::connect(&yes, &QPushButton::clicked, &box, &QDialog::accept);
    OnceShown<QDialog>("MessageBox", [](QDialog& shown) { QTest::keyClick(shown.windowHandle(), Qt::Key_Return); });
    EXPECT_EQ(box.exec(), QDialog::Accepted);

    OnceShown<QDialog>("MessageBox", [](QDialog& shown) { QTest::keyClick(shown.windowHandle(), Qt::Key_Escape); });
    EXPECT_EQ(box.exec(), QDialog::Rejected);
    EXPECT_FALSE(busy.Cancelled()); // that Escape was the box's

    TypeAndClick();
    EXPECT_EQ(text.text(), "");
    EXPECT_EQ(clicks, 0);
}

TEST_F(InputGateTest, SwallowsInputOfADialogThatBeganTheWorkItself)
{
    QDialog dialog;
    QLineEdit field(&dialog);
    dialog.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    {
        const BusyGuard guard(busy);
        QTest::keyClick(dialog.windowHandle(), 'a');
        AskToClose(dialog);
        EXPECT_TRUE(dialog.isVisible());
    }
    EXPECT_EQ(field.text(), "");
    EXPECT_TRUE(RunUntil([&] { return !dialog.isVisible(); }));
}

TEST_F(InputGateTest, LetsGoOfWhatWasHeldDownWhenWorkBegan)
{
    const QPoint arrow(bar.width() - 3, bar.height() / 2);
    Mouse(QEvent::MouseButtonPress, bar, arrow);
    ASSERT_NE(bar.repeatAction(), QAbstractSlider::SliderNoAction);
    {
        const BusyGuard guard(busy);
        Mouse(QEvent::MouseButtonRelease, bar, arrow);
    }
    EXPECT_EQ(bar.repeatAction(), QAbstractSlider::SliderNoAction);

    Mouse(QEvent::MouseButtonPress, button, button.rect().center());
    {
        const BusyGuard guard(busy);
        Mouse(QEvent::MouseButtonRelease, button, button.rect().center());
    }
    EXPECT_FALSE(button.isDown());
    EXPECT_EQ(clicks, 0);
    TypeAndClick();
    EXPECT_EQ(clicks, 1);
}

}

#include "base/Error.h"
#include "support/FakeErrorLog.h"
#include "support/ScriptedPrompts.h"
#include "support/qt/QtTestTools.h"
#include "ui/common/BusyState.h"
#include "ui/common/QtWait.h"

#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QWindow>
#include <atomic>
#include <thread>

namespace tarvex {
namespace {

TEST(BusyState, TellsTheWindowsOnceForNestedSequences)
{
    BusyState busy;
    std::vector<bool> told;
    const auto subscription = busy.Changed.Subscribe([&](bool isBusy) { told.push_back(isBusy); });
    {
        const BusyGuard outer(busy);
        {
            const BusyGuard inner(busy);
        }
        EXPECT_TRUE(busy.IsBusy());
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(told, (std::vector{true, false}));
}

TEST(BusyState, RunsTheLastActionOfEachKindOnceItIsIdleAgain)
{
    BusyState busy;
    std::vector<std::string> ran;
    const auto note = [&](const char* what) { return [&ran, what] { ran.emplace_back(what); }; };
    busy.WhenIdle("device", note("at once"));
    {
        const BusyGuard guard(busy);
        busy.WhenIdle("device", note("first change"));
        busy.WhenIdle("read", [&] {
            const BusyGuard work(busy); // the others have to wait again
            QCoreApplication::processEvents();
            ran.emplace_back("read");
            Raise(5, "Document", "Cannot read");
        });
        busy.WhenIdle("device", note("last change"));
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(ran, std::vector<std::string>{"at once"});
    EXPECT_TRUE(RunUntil([&] { return ran.size() == 3; }));
    EXPECT_EQ(ran, (std::vector<std::string>{"at once", "read", "last change"}));
}

TEST(Guarded, LogsAndShowsWhatNobodyCaught)
{
    FakeErrorLog log;
    ScriptedPrompts prompts;
    UncaughtErrors::Install(&log, &prompts);
    prompts.ExpectMessage("Board is gone");
    Guarded([] { Raise(201, "HIDDevice::WriteTo", "Board is gone"); });
    Guarded([] { throw 5; });
    UncaughtErrors::Install(nullptr, nullptr);

    ASSERT_EQ(log.entries.size(), 2U);
    EXPECT_EQ(log.entries[0].number, 201);
    EXPECT_EQ(prompts.messages.size(), 1U);
}

TEST(Guarded, EndsEveryNestedLoopAndDestroysWhatLiesBetween)
{
    bool died = false;
    bool wentOn = false;
    const auto code = RunProgram([&] {
        QDialog dialog;
        QTimer::singleShot(0, &dialog, [&] {
            Guarded([&] {
                const std::shared_ptr<void> between(nullptr, [&](void*) { died = true; });
                QDialog nested;
                QTimer::singleShot(0, &nested, [] { Guarded([] { ExitApplication(7); }); });
                QTimer::singleShot(0, &nested, [&] { Guarded([&] { wentOn = true; }); });
                ThroughQt([&] { return nested.exec(); });
                wentOn = true;
            });
        });
        ThroughQt([&] { return dialog.exec(); });
        wentOn = true;
    });

    EXPECT_EQ(code, 7);
    EXPECT_TRUE(died);
    EXPECT_FALSE(wentOn);
}

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

TEST_F(InputGateTest, DropsTheLateClickOfAButtonThatWasPressedByItsLetter)
{
    window.close();
    QWidget other;
    QPushButton load("&Load", &other);
    other.show();
    QObject::connect(&load, &QPushButton::clicked, &other, [this] { ++clicks; });
    load.animateClick(); // as the letter does: the click comes when the button goes up again
    {
        const BusyGuard guard(busy);
        EXPECT_TRUE(RunUntil([&] { return !load.isDown(); }));
    }
    EXPECT_EQ(clicks, 0);
    load.animateClick();
    EXPECT_TRUE(RunUntil([&] { return clicks == 1; }));
}

/// A call that lasts until the test lets it end, and then wakes its waiter from another thread.
class HeldCall : public IPendingCall {
public:
    void End()
    {
        thread_ = std::jthread([this] {
            isDone_ = true;
            wake_();
        });
    }
    bool WaitFor(std::chrono::milliseconds) override { return isDone_; }
    bool IsDone() override { return isDone_; }
    void OnDone(std::function<void()> wake) override { wake_ = std::move(wake); }

private:
    std::atomic<bool> isDone_ = false;
    std::function<void()> wake_;
    std::jthread thread_; // ends before what it uses
};

TEST(QtWait, KeepsTimersGoingAndWaitsForTheCallBeforeARequestToEndTheProgramGoesOn)
{
    BusyState busy;
    QtWait wait(busy);
    QTimer heart;
    int beats = 0;
    bool callEnded = false;
    bool wentOn = false;
    const auto code = RunProgram([&] {
        HeldCall call;
        QObject::connect(&heart, &QTimer::timeout, &heart, [&] {
            EXPECT_TRUE(busy.IsBusy());
            Guarded([] { ExitApplication(7); });
            if (++beats == 3)
                call.End();
        });
        heart.start(1);
        wait.Until(call);
        heart.stop();
        callEnded = call.IsDone();
        wait.Breathe();
        wentOn = true;
    });
    EXPECT_EQ(code, 7);
    EXPECT_TRUE(callEnded);
    EXPECT_FALSE(wentOn || busy.IsBusy());
}

}
}

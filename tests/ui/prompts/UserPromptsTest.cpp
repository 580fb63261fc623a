#include "ui/prompts/UserPrompts.h"

#include "support/qt/QtTestTools.h"
#include "ui/common/BusyState.h"

#include <gtest/gtest.h>

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include <memory>

namespace tarvex {

namespace {

void PressKey(QWidget& window, Qt::Key key) { QTest::keyClick(window.windowHandle(), key); }

void Click(QWidget& window, QAbstractButton& button)
{
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button.mapTo(&window, button.rect().center()));
}

class UserPromptsTest : public ::testing::Test {
protected:
    Answer AnswerWith(Buttons buttons, std::function<void(QMessageBox&)> act)
    {
        OnceShown<QMessageBox>("MessageBox", std::move(act));
        return prompts.ShowMessage({"Text of <b> the box", "Title", buttons, Icon::Question});
    }

    UserPrompts prompts{TARVEX_HELP_FILE};
};

}

TEST_F(UserPromptsTest, AnswersWithTheButtonThatWasPressed)
{
    struct Case {
        Buttons buttons;
        QMessageBox::StandardButton pressed;
        Answer answer;
    };
    for (const Case& c :
         {Case{Buttons::Ok, QMessageBox::Ok, Answer::Ok}, Case{Buttons::YesNo, QMessageBox::Yes, Answer::Yes},
          Case{Buttons::YesNo, QMessageBox::No, Answer::No},
          Case{Buttons::RetryCancelHelp, QMessageBox::Retry, Answer::Retry},
          Case{Buttons::RetryCancelHelp, QMessageBox::Cancel, Answer::Cancel}})
        EXPECT_EQ(AnswerWith(c.buttons, [&](QMessageBox& box) { Click(box, *box.button(c.pressed)); }), c.answer);
}

TEST_F(UserPromptsTest, AnswersNoCancelOrOkWhenTheBoxIsClosed)
{
    struct Case {
        Buttons buttons;
        Answer answer;
    };
    for (const Case& c : {Case{Buttons::Ok, Answer::Ok}, Case{Buttons::YesNo, Answer::No},
                          Case{Buttons::RetryCancelHelp, Answer::Cancel}}) {
        EXPECT_EQ(AnswerWith(c.buttons, [](QMessageBox& box) { PressKey(box, Qt::Key_Escape); }), c.answer);
        EXPECT_EQ(AnswerWith(c.buttons, [](QMessageBox& box) { box.close(); }), c.answer);
    }
}

TEST_F(UserPromptsTest, ShowsTextsAsTheyAre)
{
    AnswerWith(Buttons::Ok, [](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Text of <b> the box");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "Title");
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        box.accept();
    });
}

TEST_F(UserPromptsTest, ComesBackAfterItsHelpWasClosed)
{
    int boxes = 0;
    const auto pressHelp = [&](QMessageBox& box) {
        ++boxes;
        Click(box, *box.button(QMessageBox::Help));
    };
    OnceShown<QDialog>("HelpViewer", [&](QDialog& help) {
        EXPECT_TRUE(help.isModal());
        OnceShown<QMessageBox>("MessageBox", [&](QMessageBox& box) {
            ++boxes;
            PressKey(box, Qt::Key_Return);
        });
        PressKey(help, Qt::Key_Escape);
    });
    EXPECT_EQ(AnswerWith(Buttons::RetryCancelHelp, pressHelp), Answer::Retry);
    EXPECT_EQ(boxes, 2);
}

TEST_F(UserPromptsTest, CanBeAnsweredWhileWorkRuns)
{
    BusyState busy;
    const BusyGuard guard(busy);
    EXPECT_EQ(AnswerWith(Buttons::YesNo,
                         [](QMessageBox& box) {
                             EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
                             Click(box, *box.button(QMessageBox::Yes));
                         }),
              Answer::Yes);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    EXPECT_FALSE(busy.Cancelled());
}

TEST_F(UserPromptsTest, SurvivesTheDeathOfTheWindowUnderABox)
{
    auto* window = new QWidget;
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_EQ(AnswerWith(Buttons::YesNo,
                         [&](QMessageBox& box) {
                             EXPECT_EQ(box.parentWidget(), window);
                             delete window;
                         }),
              Answer::No);
}

TEST_F(UserPromptsTest, UnwindsNestedBoxesWhenTheProgramEnds)
{
    bool wentOn = false;
    const auto code = RunProgram([&] {
        OnceShown<QMessageBox>("MessageBox", [&](QMessageBox& outer) {
            outer.setObjectName("OuterBox");
            Guarded([&] {
                OnceShown<QMessageBox>("MessageBox", [](QMessageBox&) { Guarded([] { ExitApplication(7); }); });
                prompts.Ask("Inner question");
                wentOn = true;
            });
        });
        prompts.Ask("Outer question");
        wentOn = true;
    });
    EXPECT_EQ(code, 7);
    EXPECT_FALSE(wentOn);
    EXPECT_EQ(VisibleWindow("OuterBox"), nullptr);
}

TEST_F(UserPromptsTest, AsksForAText)
{
    const auto ask = [&](std::function<void(QInputDialog&)> act) {
        OnceShown<QInputDialog>("InputBox", std::move(act));
        return prompts.AskText("Enter the number:", "Input", "1");
    };
    EXPECT_EQ(ask([](QInputDialog& box) { PressKey(box, Qt::Key_Return); }), "1");
    EXPECT_EQ(ask([](QInputDialog& box) { PressKey(box, Qt::Key_Escape); }), std::nullopt);
    EXPECT_EQ(ask([](QInputDialog& box) {
                  auto* field = box.findChild<QLineEdit*>("InputText");
                  ASSERT_NE(field, nullptr);
                  EXPECT_EQ(field->accessibleName(), "Enter the number:");
                  field->clear();
                  PressKey(box, Qt::Key_2);
                  PressKey(box, Qt::Key_Return);
              }),
              "2");
}

TEST_F(UserPromptsTest, PicksADeviceByKeyboardAndMouse)
{
    const auto browse = [&](std::function<void(QDialog&)> act) {
        OnceShown<QDialog>("DeviceBrowseDialog", std::move(act));
        return prompts.BrowseForDevice({"Kestra Rack A (0x1A2B)", "Kestra Rack B (0x1A2C)", "same", "same"});
    };
    const auto pressDown = [](QDialog& dialog, int times) {
        for (int i = 0; i < times; ++i)
            PressKey(dialog, Qt::Key_Down);
    };
    EXPECT_EQ(prompts.BrowseForDevice({}), std::nullopt);
    EXPECT_EQ(browse([](QDialog& dialog) { PressKey(dialog, Qt::Key_Return); }), std::nullopt); // nothing selected
    EXPECT_EQ(browse([&](QDialog& dialog) {
                  pressDown(dialog, 4);
                  PressKey(dialog, Qt::Key_Return);
              }),
              3U);
    EXPECT_EQ(browse([&](QDialog& dialog) {
                  pressDown(dialog, 2);
                  PressKey(dialog, Qt::Key_Escape);
              }),
              std::nullopt);
    EXPECT_EQ(browse([](QDialog& dialog) {
                  auto* list = dialog.findChild<QListWidget*>("List1");
                  const QPoint place = list->visualItemRect(list->item(1)).center();
                  QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {}, list->viewport()->mapTo(&dialog, place));
                  Click(dialog, *dialog.findChild<QPushButton*>("OKButton"));
              }),
              1U);
}

TEST_F(UserPromptsTest, ShowsTheBusyPointerAsOftenAsAsked)
{
    prompts.SetBusyPointer(true);
    prompts.SetBusyPointer(true);
    prompts.SetBusyPointer(false);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    prompts.SetBusyPointer(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);

    BusyState busy;
    const BusyGuard guard(busy);
    prompts.SetBusyPointer(false); // once too often: not the pointer of others
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

}

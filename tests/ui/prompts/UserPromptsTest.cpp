#include "ui/prompts/UserPrompts.h"

#include "support/qt/QtTestTools.h"
#include "ui/common/BusyState.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWindow>

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

TEST_F(UserPromptsTest, AnswersWithTheButtonAndForAClosedBox)
{
    const struct {
        Buttons buttons;
        QMessageBox::StandardButton button;
        Answer pressed;
        Answer closed;
    } cases[] = {{Buttons::Ok, QMessageBox::Ok, Answer::Ok, Answer::Ok},
                 {Buttons::YesNo, QMessageBox::Yes, Answer::Yes, Answer::No},
                 {Buttons::YesNo, QMessageBox::No, Answer::No, Answer::No},
                 {Buttons::RetryCancelHelp, QMessageBox::Retry, Answer::Retry, Answer::Cancel},
                 {Buttons::RetryCancelHelp, QMessageBox::Cancel, Answer::Cancel, Answer::Cancel}};
    for (const auto& c : cases) {
        EXPECT_EQ(AnswerWith(c.buttons, [&](QMessageBox& box) { Click(box, *box.button(c.button)); }), c.pressed);
        EXPECT_EQ(AnswerWith(c.buttons, [](QMessageBox& box) { PressKey(box, Qt::Key_Escape); }), c.closed);
        EXPECT_EQ(AnswerWith(c.buttons, [](QMessageBox& box) { box.close(); }), c.closed);
    }
}

TEST_F(UserPromptsTest, ShowsItsTextAsItIsAndAPlainPointerWhileWorkRuns)
{
    BusyState busy;
    const BusyGuard guard(busy);
    AnswerWith(Buttons::Ok, [](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Text of <b> the box");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        PressKey(box, Qt::Key_Escape);
    });
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    EXPECT_FALSE(busy.Cancelled());
}

TEST_F(UserPromptsTest, PicksADevice)
{
    const auto browse = [&](int downs, Qt::Key key) {
        OnceShown<QDialog>("DeviceBrowseDialog", [=](QDialog& dialog) {
            for (int i = 0; i < downs; ++i)
                PressKey(dialog, Qt::Key_Down);
            PressKey(dialog, key);
        });
        return prompts.BrowseForDevice({"Kestra Rack A (0x1A2B)", "same", "same"});
    };
    EXPECT_EQ(prompts.BrowseForDevice({}), std::nullopt);
    EXPECT_EQ(browse(0, Qt::Key_Return), std::nullopt); // nothing selected
    EXPECT_EQ(browse(3, Qt::Key_Return), 2U);
    EXPECT_EQ(browse(2, Qt::Key_Escape), std::nullopt);
}

}

#include "support/TemporaryFolder.h"
#include "support/qt/QtTestTools.h"
#include "ui/common/BusyState.h"
#include "ui/prompts/FileFilters.h"
#include "ui/prompts/UserPrompts.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QWindow>
#include <gtest/gtest.h>

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

TEST_F(UserPromptsTest, AnswersWithTheButtonAndForAClosedBox)
{
    const std::tuple<Buttons, QMessageBox::StandardButton, Answer, Answer> cases[] = {
        {Buttons::Ok, QMessageBox::Ok, Answer::Ok, Answer::Ok},
        {Buttons::YesNo, QMessageBox::Yes, Answer::Yes, Answer::No},
        {Buttons::YesNo, QMessageBox::No, Answer::No, Answer::No},
        {Buttons::RetryCancelHelp, QMessageBox::Retry, Answer::Retry, Answer::Cancel},
        {Buttons::RetryCancelHelp, QMessageBox::Cancel, Answer::Cancel, Answer::Cancel}};
    for (const auto& [buttons, button, pressed, closed] : cases) {
        const auto click = [wanted = button](QMessageBox& box) { Click(box, *box.button(wanted)); };
        EXPECT_EQ(AnswerWith(buttons, click), pressed);
        EXPECT_EQ(AnswerWith(buttons, [](QMessageBox& box) { PressKey(box, Qt::Key_Escape); }), closed);
        EXPECT_EQ(AnswerWith(buttons, [](QMessageBox& box) { box.close(); }), closed);
    }
}

TEST_F(UserPromptsTest, ReturnLosesNothing)
{
    const auto pressReturn = [](QMessageBox& box) { PressKey(box, Qt::Key_Return); };
    OnceShown<QMessageBox>("MessageBox", pressReturn);
    EXPECT_TRUE(prompts.Ask("Resend?"));
    OnceShown<QMessageBox>("MessageBox", pressReturn);
    EXPECT_FALSE(prompts.AskBeforeLoss("Discard?"));
}

constexpr const char* kFilter = "XML (*.xml)|*.xml|All (*.*)|*.*";

/// Types a name into the dialog and presses Return.
void Enter(const QString& name)
{
    OnceShown<QFileDialog>("FileDialog", [name](QFileDialog& dialog) {
        auto* field = dialog.findChild<QLineEdit*>("fileNameEdit");
        field->setText(name);
        QTest::keyClick(field, Qt::Key_Return);
    });
}

TEST(FileFilters, AreTurnedIntoThoseOfQt)
{
    EXPECT_EQ(NameFilters(kFilter), (QStringList{"XML (*.xml)", "All (*)"}));
    EXPECT_EQ(NameFilters("Logs|*.txt; *.log"), QStringList{"Logs (*.txt *.log)"});
    EXPECT_EQ(NameFilters("No patterns"), QStringList{"All (*)"});
    EXPECT_EQ(DefaultSuffix(".xml"), "xml");
}

TEST(FileDialog, AddsTheDefaultExtensionAndAsksBeforeAFileIsReplaced)
{
    const TemporaryFolder folder;
    for (const char* name : {"board.xml", "plain"})
        folder.Write(name, "x");
    const FileDialogRequest request{"Choose", folder.path, "", kFilter, "xml"};
    UserPrompts prompts("none.hlp");

    Enter("plain");
    EXPECT_EQ(prompts.AskOpenFile(request), folder.File("plain"));
    OnceShown<QFileDialog>("FileDialog", [](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(prompts.AskOpenFile(request), std::nullopt);
    Enter("new.txt");
    EXPECT_EQ(prompts.AskSaveFile(request), folder.File("new.txt"));
    Enter("board");
    OnceShown<QMessageBox>("MessageBox", [](QMessageBox& box) {
        Enter("other");
        box.button(QMessageBox::No)->click();
    });
    EXPECT_EQ(prompts.AskSaveFile(request), folder.File("other.xml"));
}

}
}

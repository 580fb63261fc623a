#include "support/qt/QtTestTools.h"
#include "ui/prompts/FileFilters.h"
#include "ui/prompts/UserPrompts.h"

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <fstream>

namespace tarvex {

namespace {

constexpr const char* kFilter = "XML (*.xml)|*.xml|All (*.*)|*.*";

class FileDialogTest : public ::testing::Test {
protected:
    FileDialogTest()
    {
        for (const char* name : {"board.xml", "plain"})
            std::ofstream(folder.filePath(name).toStdString()) << "x";
    }

    /// Types a name into the dialog and presses Return; an empty one presses Escape.
    static void Enter(const QString& name)
    {
        OnceShown<QFileDialog>("FileDialog", [name](QFileDialog& dialog) {
            if (name.isEmpty()) {
                QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
                return;
            }
            auto* field = dialog.findChild<QLineEdit*>("fileNameEdit");
            field->setText(name);
            field->setFocus();
            QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
        });
    }

    std::string Path(const char* name) const { return folder.filePath(name).toStdString(); }
    FileDialogRequest Request() const { return {"Choose", folder.path().toStdString(), "", kFilter, "xml"}; }

    QTemporaryDir folder;
    UserPrompts prompts{"none.hlp"};
};

}

TEST(FileFilters, AreTurnedIntoThoseOfQt)
{
    EXPECT_EQ(NameFilters(kFilter), (QStringList{"XML (*.xml)", "All (*)"}));
    EXPECT_EQ(NameFilters("Logs|*.txt; *.log"), QStringList{"Logs (*.txt *.log)"});
    EXPECT_EQ(NameFilters(""), QStringList{"All (*)"});
    EXPECT_EQ(NameFilters("No patterns"), QStringList{"All (*)"});
    EXPECT_EQ(DefaultSuffix(".xml"), "xml");
    EXPECT_EQ(DefaultSuffix("xml"), "xml");
}

TEST_F(FileDialogTest, OpensWhatIsThere)
{
    Enter("board.xml");
    EXPECT_EQ(prompts.AskOpenFile(Request()), Path("board.xml"));
    Enter("plain");
    EXPECT_EQ(prompts.AskOpenFile(Request()), Path("plain"));
    Enter("");
    EXPECT_EQ(prompts.AskOpenFile(Request()), std::nullopt);
}

TEST_F(FileDialogTest, SavesWithTheDefaultExtension)
{
    Enter("new");
    EXPECT_EQ(prompts.AskSaveFile(Request()), Path("new.xml"));
    Enter("new.txt");
    EXPECT_EQ(prompts.AskSaveFile(Request()), Path("new.txt"));
    auto proposing = Request();
    proposing.fileName = "proposed.xml";
    OnceShown<QFileDialog>("FileDialog",
                           [](QFileDialog& dialog) { QTest::keyClick(dialog.windowHandle(), Qt::Key_Return); });
    EXPECT_EQ(prompts.AskSaveFile(proposing), Path("proposed.xml"));
}

TEST_F(FileDialogTest, AsksBeforeAFileIsReplaced)
{
    const auto answer = [](QMessageBox::StandardButton button) {
        OnceShown<QMessageBox>("MessageBox", [button](QMessageBox& box) { box.button(button)->click(); });
    };
    Enter("board");
    answer(QMessageBox::Yes);
    EXPECT_EQ(prompts.AskSaveFile(Request()), Path("board.xml"));

    Enter("board");
    OnceShown<QMessageBox>("MessageBox", [](QMessageBox& box) {
        Enter("other");
        box.button(QMessageBox::No)->click();
    });
    EXPECT_EQ(prompts.AskSaveFile(Request()), Path("other.xml"));
}

}

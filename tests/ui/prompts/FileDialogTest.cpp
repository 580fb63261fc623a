#include "support/TemporaryFolder.h"
#include "support/qt/QtTestTools.h"
#include "ui/prompts/FileFilters.h"
#include "ui/prompts/UserPrompts.h"

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace tarvex {

namespace {

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

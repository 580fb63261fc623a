#include "ui/prompts/HelpViewer.h"

#include "support/qt/QtTestTools.h"
#include "ui/prompts/UserPrompts.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QTreeView>
#include <QWindow>

#include <fstream>

namespace tarvex {

namespace {

class HelpViewerTest : public ::testing::Test {
protected:
    template <class Widget> Widget& Find(const char* name) { return *viewer.findChild<Widget*>(name); }
    QString PageName() const { return viewer.CurrentPage().fileName(); }

    HelpViewer viewer;
};

}

TEST_F(HelpViewerTest, FindsContentsAndTopics)
{
    ASSERT_TRUE(viewer.Open(TARVEX_HELP_FILE));
    viewer.GoTo(std::nullopt);
    EXPECT_EQ(PageName(), "index.html");
    viewer.GoTo(3014);
    EXPECT_EQ(PageName(), "hotkeys.html");
    EXPECT_TRUE(Find<QTextBrowser>("HelpPage").toPlainText().contains("Hot keys"));
    viewer.GoTo(99999);
    EXPECT_EQ(PageName(), "index.html");

    Find<QPushButton>("HelpBack").click();
    EXPECT_EQ(PageName(), "hotkeys.html");
    Find<QPushButton>("HelpForward").click();
    EXPECT_EQ(PageName(), "index.html");
}

TEST_F(HelpViewerTest, LeadsFromTheContentsTreeToAPage)
{
    ASSERT_TRUE(viewer.Open(TARVEX_HELP_FILE));
    viewer.GoTo(std::nullopt);
    viewer.show();
    auto& tree = Find<QTreeView>("HelpContentsTree");
    ASSERT_TRUE(RunUntil([&] { return tree.model()->rowCount() > 0; }));
    const QModelIndex root = tree.model()->index(0, 0);
    tree.setCurrentIndex(tree.model()->index(1, 0, root));
    tree.setFocus();
    QTest::keyClick(viewer.windowHandle(), Qt::Key_Return);
    EXPECT_EQ(PageName(), "starting.html");
}

TEST_F(HelpViewerTest, FindsPagesByWords)
{
    ASSERT_TRUE(viewer.Open(TARVEX_HELP_FILE));
    viewer.GoTo(std::nullopt);
    auto& hits = Find<QListWidget>("HelpSearchHits");
    auto& words = Find<QLineEdit>("HelpSearchWords");
    words.setText("no such word");
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_EQ(hits.item(0)->text(), "No page found");
    words.setText("beep BAR");
    QTest::keyClick(&words, Qt::Key_Return);
    ASSERT_EQ(hits.count(), 1);
    EXPECT_EQ(hits.item(0)->text(), "Hot keys");
    Q_EMIT hits.itemActivated(hits.item(0));
    EXPECT_EQ(PageName(), "hotkeys.html");
}

TEST_F(HelpViewerTest, RefusesWhatIsNoHelpFileAndSaysSo)
{
    EXPECT_FALSE(HelpViewer().Open("/no/such/Tarvex.hlp"));

    QTemporaryDir folder;
    const std::string garbage = folder.filePath("Tarvex.hlp").toStdString();
    for (const char* content : {"", "not a help file", "SQLite format 3"}) {
        std::ofstream(garbage) << content;
        UserPrompts prompts(garbage);
        OnceShown<QMessageBox>("MessageBox", [&](QMessageBox& box) {
            EXPECT_TRUE(box.text().startsWith(QString::fromStdString("The help file " + garbage + " cannot be read.")));
            box.accept();
        });
        prompts.ShowHelp(3014);
        EXPECT_EQ(VisibleWindow("HelpViewer"), nullptr);
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1); // nothing was written beside it
}

TEST_F(HelpViewerTest, StaysBesideTheWindowsAndClosesWithEscape)
{
    UserPrompts prompts(TARVEX_HELP_FILE);
    prompts.ShowHelp(std::nullopt);
    QWidget* help = VisibleWindow("HelpViewer");
    ASSERT_NE(help, nullptr);
    EXPECT_FALSE(help->isModal());
    EXPECT_EQ(help->windowTitle(), "Tarvex Help");
    prompts.ShowHelp(3014);
    EXPECT_EQ(VisibleWindow("HelpViewer"), help);
    QTest::keyClick(help->windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(help->isVisible());
}

}

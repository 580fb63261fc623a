#include "ui/prompts/HelpViewer.h"

#include "support/qt/QtTestTools.h"
#include "ui/prompts/UserPrompts.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTest>
#include <QTreeView>

#include <fstream>

namespace tarvex {

namespace {

class HelpViewerTest : public ::testing::Test {
protected:
    HelpViewerTest() { EXPECT_TRUE(viewer.Open(TARVEX_HELP_FILE)); }
    template <class Widget> Widget& Find(const char* name) { return *viewer.findChild<Widget*>(name); }
    QString PageName() const { return viewer.CurrentPage().fileName(); }

    HelpViewer viewer;
};

}

TEST_F(HelpViewerTest, FindsTopicsAndPagesInTheContents)
{
    viewer.GoTo(3014);
    EXPECT_EQ(PageName(), "hotkeys.html");
    viewer.GoTo(99999);
    EXPECT_EQ(PageName(), "index.html");

    viewer.show();
    auto& tree = Find<QTreeView>("HelpContentsTree");
    ASSERT_TRUE(RunUntil([&] { return tree.model()->rowCount() > 0; }));
    tree.setCurrentIndex(tree.model()->index(1, 0, tree.model()->index(0, 0)));
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_EQ(PageName(), "starting.html");
}

TEST_F(HelpViewerTest, FindsPagesByWords)
{
    auto& hits = Find<QListWidget>("HelpSearchHits");
    auto& words = Find<QLineEdit>("HelpSearchWords");
    for (const auto& [typed, found] : {std::pair("no such word", "No page found"), std::pair("beep BAR", "Hot keys")}) {
        words.setText(typed);
        QTest::keyClick(&words, Qt::Key_Return);
        ASSERT_EQ(hits.count(), 1);
        EXPECT_EQ(hits.item(0)->text(), found);
    }
    Q_EMIT hits.itemActivated(hits.item(0));
    EXPECT_EQ(PageName(), "hotkeys.html");
}

TEST(HelpOfPrompts, RefusesWhatIsNoHelpFileAndSaysSo)
{
    const QTemporaryDir folder;
    const std::string garbage = folder.filePath("Tarvex.hlp").toStdString();
    for (const char* content : {"", "SQLite format 3"}) {
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

TEST(HelpOfPrompts, StaysBesideTheWindowsAndClosesWithEscape)
{
    UserPrompts prompts(TARVEX_HELP_FILE);
    prompts.ShowHelp(std::nullopt);
    QWidget* help = VisibleWindow("HelpViewer");
    ASSERT_NE(help, nullptr);
    EXPECT_FALSE(help->isModal());
    prompts.ShowHelp(3014);
    EXPECT_EQ(VisibleWindow("HelpViewer"), help);
    QTest::keyClick(help, Qt::Key_Escape);
    EXPECT_FALSE(help->isVisible());
}

}

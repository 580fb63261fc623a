#include "ui/prompts/HelpViewer.h"

#include "support/TemporaryFolder.h"
#include "support/qt/QtTestTools.h"
#include "ui/prompts/UserPrompts.h"

#include <gtest/gtest.h>

#include <QMessageBox>

namespace tarvex {

TEST(HelpViewer, FindsTheTopicOrShowsTheFirstPage)
{
    HelpViewer viewer;
    ASSERT_TRUE(viewer.Open(TARVEX_HELP_FILE));
    for (const auto& [topic, page] : {std::pair(3014, "hotkeys.html"), std::pair(99999, "index.html")}) {
        viewer.GoTo(topic);
        EXPECT_EQ(viewer.CurrentPage().fileName(), page);
    }
}

TEST(HelpOfPrompts, RefusesWhatIsNoHelpFileAndSaysSo)
{
    const TemporaryFolder folder;
    for (const char* content : {"", "SQLite format 3"}) {
        const std::string garbage = folder.Write("Tarvex.hlp", content);
        UserPrompts prompts(garbage);
        OnceShown<QMessageBox>("MessageBox", [&](QMessageBox& box) {
            EXPECT_TRUE(box.text().startsWith(QString::fromStdString("The help file " + garbage + " cannot be read.")));
            box.accept();
        });
        prompts.ShowHelp(3014);
        EXPECT_EQ(VisibleWindow("HelpViewer"), nullptr);
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1); // nothing is written beside it
}

}

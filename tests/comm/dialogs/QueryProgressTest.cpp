#include "support/qt/QtTestTools.h"
#include "ui/common/BusyState.h"
#include "ui/prompts/UserPrompts.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QPushButton>
#include <QTest>
#include <QWindow>

namespace tarvex {

TEST(QueryProgress, CanBeCancelledWhileWorkRunsAndNothingElseCan)
{
    const std::function<void(QWidget&)> waysOut[] = {
        [](QWidget& window) { QTest::keyClick(window.windowHandle(), Qt::Key_Escape); },
        [](QWidget& window) {
            const auto* cancel = window.findChild<QPushButton*>("BTN_Cancel");
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, cancel->geometry().center());
        },
        [](QWidget& window) {
            QCloseEvent close;
            QSpontaneKeyEvent::setSpontaneous(&close);
            qApp->notify(window.windowHandle(), &close);
        },
    };
    for (const bool workBegan : {false, true})
        for (const auto& giveUp : waysOut) {
            QPushButton behind("Read");
            behind.show();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&behind));
            QObject::connect(&behind, &QPushButton::clicked, &behind, [] { ADD_FAILURE(); });
            BusyState busy;
            UserPrompts prompts("");
            std::optional<BusyGuard> before;
            if (workBegan)
                before.emplace(busy);
            auto query = prompts.ShowQueryProgress();
            const BusyGuard guard(busy);
            QWidget* window = VisibleWindow("QueryProgress");
            ASSERT_NE(window, nullptr);
            EXPECT_EQ(window->parentWidget(), &behind);
            QTest::mouseClick(behind.windowHandle(), Qt::LeftButton, {}, behind.rect().center());
            EXPECT_FALSE(query->Cancelled());
            giveUp(*window);
            EXPECT_TRUE(query->Cancelled());
            EXPECT_TRUE(window->isVisible()); // until the searcher has heard of it
            query.reset();
            EXPECT_EQ(VisibleWindow("QueryProgress"), nullptr);
        }
}

TEST(QueryProgress, SurvivesTheWindowThatItStandsOver)
{
    auto main = std::make_unique<QWidget>();
    main->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    UserPrompts prompts("");
    const auto query = prompts.ShowQueryProgress();
    main.reset();
    EXPECT_TRUE(query->Cancelled());
}

}

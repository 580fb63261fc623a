#include "ui/common/BusyState.h"
#include "support/FakeErrorLog.h"
#include "support/qt/QtTestTools.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace tarvex {

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
    EXPECT_FALSE(busy.IsBusy());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(told, (std::vector{true, false}));
}

TEST(BusyState, EndsEvenWhenAWindowCannotFollow)
{
    FakeErrorLog log;
    UncaughtErrors::Install(&log, nullptr);
    BusyState busy;
    const auto subscription = busy.Changed.Subscribe([](bool) { Raise(5, "AdvancedForm", "No menu"); });
    {
        const BusyGuard guard(busy);
    }
    UncaughtErrors::Install(nullptr, nullptr);

    EXPECT_FALSE(busy.IsBusy());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(log.entries.size(), 2U);
}

TEST(BusyState, RunsTheLastActionOfEachKindFromTheEventLoop)
{
    BusyState busy;
    std::vector<std::string> ran;
    const auto note = [&](const char* what) { return [&ran, what] { ran.emplace_back(what); }; };
    busy.WhenIdle("device", note("at once"));
    {
        const BusyGuard guard(busy);
        busy.WhenIdle("device", note("first change"));
        busy.WhenIdle("disconnect", [&] {
            note("disconnect")();
            Raise(5, "Document", "Cannot disconnect");
        });
        busy.WhenIdle("device", note("last change"));
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(ran, std::vector<std::string>{"at once"});
    EXPECT_TRUE(RunUntil([&] { return ran.size() == 3; }));
    EXPECT_EQ(ran, (std::vector<std::string>{"at once", "disconnect", "last change"}));
}

TEST(BusyState, LetsActionsWaitAgainWhenOneOfThemBeginsWork)
{
    BusyState busy;
    std::vector<std::string> ran;
    {
        const BusyGuard guard(busy);
        busy.WhenIdle("read", [&] {
            const BusyGuard work(busy);
            QCoreApplication::processEvents();
            ran.emplace_back("read");
        });
        busy.WhenIdle("other", [&] { ran.emplace_back(busy.IsBusy() ? "other while busy" : "other"); });
    }
    EXPECT_TRUE(RunUntil([&] { return ran.size() == 2; }));
    EXPECT_EQ(ran, (std::vector<std::string>{"read", "other"}));
}

TEST(BusyState, DropsWaitingActionsWhenItEnds)
{
    bool ran = false;
    auto busy = std::make_unique<BusyState>();
    {
        const BusyGuard guard(*busy);
        busy->WhenIdle("read", [&] { ran = true; });
    }
    busy.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(ran);
}

}

#include "ui/common/BusyState.h"

#include "base/Error.h"
#include "support/qt/QtTestTools.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(told, (std::vector{true, false}));
}

TEST(BusyState, RunsTheLastActionOfEachKindOnceItIsIdleAgain)
{
    BusyState busy;
    std::vector<std::string> ran;
    const auto note = [&](const char* what) { return [&ran, what] { ran.emplace_back(what); }; };
    busy.WhenIdle("device", note("at once"));
    {
        const BusyGuard guard(busy);
        busy.WhenIdle("device", note("first change"));
        busy.WhenIdle("read", [&] {
            const BusyGuard work(busy); // the others have to wait again
            QCoreApplication::processEvents();
            ran.emplace_back("read");
            Raise(5, "Document", "Cannot read");
        });
        busy.WhenIdle("device", note("last change"));
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(ran, std::vector<std::string>{"at once"});
    EXPECT_TRUE(RunUntil([&] { return ran.size() == 3; }));
    EXPECT_EQ(ran, (std::vector<std::string>{"at once", "read", "last change"}));
}

}

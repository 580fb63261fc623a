#include "support/FakeErrorLog.h"
#include "support/ScriptedPrompts.h"
#include "support/qt/QtTestTools.h"

#include <gtest/gtest.h>

#include <QDialog>

namespace tarvex {

namespace {

class GuardedTest : public ::testing::Test {
protected:
    GuardedTest() { UncaughtErrors::Install(&log, &prompts); }
    ~GuardedTest() override
    {
        UncaughtErrors::Install(nullptr, nullptr);
        ExitState::Reset();
    }

    FakeErrorLog log;
    ScriptedPrompts prompts;
};

struct NotedDeath {
    ~NotedDeath() { noted = true; }
    bool& noted;
};

}

TEST_F(GuardedTest, LogsAndShowsWhatNobodyCaught)
{
    prompts.ExpectMessage("Board is gone");
    Guarded([] { Raise(201, "HIDDevice::WriteTo", "Board is gone"); });
    Guarded([] { throw 5; });

    ASSERT_EQ(log.entries.size(), 2U);
    EXPECT_EQ(log.entries[0].number, 201);
    EXPECT_EQ(log.entries[0].source, "HIDDevice::WriteTo");
    EXPECT_EQ(prompts.messages.size(), 1U);
}

TEST_F(GuardedTest, EndsEveryNestedLoopAndDestroysWhatLiesBetween)
{
    bool outerDied = false;
    bool innerDied = false;
    bool wentOn = false;
    const auto code = RunProgram([&] {
        const NotedDeath outer{outerDied};
        QDialog dialog;
        QTimer::singleShot(0, &dialog, [&] {
            Guarded([&] {
                const NotedDeath inner{innerDied};
                QDialog nested;
                QTimer::singleShot(0, &nested, [] { Guarded([] { ExitApplication(7); }); });
                QTimer::singleShot(0, &nested, [&] { Guarded([&] { wentOn = true; }); });
                ThroughQt([&] { return nested.exec(); });
                wentOn = true;
            });
        });
        ThroughQt([&] { return dialog.exec(); });
        wentOn = true;
    });

    EXPECT_EQ(code, 7);
    EXPECT_TRUE(outerDied);
    EXPECT_TRUE(innerDied);
    EXPECT_FALSE(wentOn);
}

TEST_F(GuardedTest, OpensNoDialogAfterTheRequest)
{
    bool shown = false;
    const auto code = RunProgram([&] {
        try {
            ExitApplication(3);
        } catch (const ExitRequest&) {
        }
        ThroughQt([&] { shown = true; });
    });

    EXPECT_EQ(code, 3);
    EXPECT_FALSE(shown);
}

}

#include "support/FakeErrorLog.h"
#include "support/ScriptedPrompts.h"
#include "support/qt/QtTestTools.h"

#include <gtest/gtest.h>

#include <QDialog>

namespace tarvex {

TEST(Guarded, LogsAndShowsWhatNobodyCaught)
{
    FakeErrorLog log;
    ScriptedPrompts prompts;
    UncaughtErrors::Install(&log, &prompts);
    prompts.ExpectMessage("Board is gone");
    Guarded([] { Raise(201, "HIDDevice::WriteTo", "Board is gone"); });
    Guarded([] { throw 5; });
    UncaughtErrors::Install(nullptr, nullptr);

    ASSERT_EQ(log.entries.size(), 2U);
    EXPECT_EQ(log.entries[0].number, 201);
    EXPECT_EQ(prompts.messages.size(), 1U);
}

TEST(Guarded, EndsEveryNestedLoopAndDestroysWhatLiesBetween)
{
    bool died = false;
    bool wentOn = false;
    const auto code = RunProgram([&] {
        QDialog dialog;
        QTimer::singleShot(0, &dialog, [&] {
            Guarded([&] {
                const std::shared_ptr<void> between(nullptr, [&](void*) { died = true; });
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
    EXPECT_TRUE(died);
    EXPECT_FALSE(wentOn);
}

}

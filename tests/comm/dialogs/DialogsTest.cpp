#include "comm/dialogs/NoCommHelp.h"
#include "comm/dialogs/SerialSettings.h"
#include "support/ScriptedPrompts.h"
#include "support/qt/QtTestTools.h"
#include "ui/common/BusyState.h"
#include "ui/prompts/UserPrompts.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QWindow>

namespace tarvex {

namespace {

QComboBox& List(QWidget& window, const char* name) { return *window.findChild<QComboBox*>(name); }

void Click(QWidget& window, const char* name)
{
    const auto* button = window.findChild<QPushButton*>(name);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button->geometry().center());
}

/// Gives a window up as a user can.
const std::function<void(QWidget&)> kWaysOut[] = {
    [](QWidget& window) { Click(window, "BTN_Cancel"); },
    [](QWidget& window) { QTest::keyClick(window.windowHandle(), Qt::Key_Escape); },
    [](QWidget& window) {
        QCloseEvent close;
        QSpontaneKeyEvent::setSpontaneous(&close);
        qApp->notify(window.windowHandle(), &close);
    },
};

}

TEST(SerialSettings, ShowsTheSettingsOfASerialPort)
{
    const struct {
        CommSettings settings;
        const char *port, *baud;
        bool keepOpen;
    } cases[] = {{{1, 38400, "", false, 3, 0}, "COM 3", "38400", false},
                 {{1, 57600, "", true, 20, 0}, "COM 1", "57600", true},
                 {{1, 14400, "", true, 16, 0}, "COM 16", "14400", true},
                 {{0, 38400, "", false, 3, 0}, "COM 1", "9600", true}};
    for (const auto& c : cases) {
        ScriptedPrompts prompts;
        SerialSettings window(prompts, nullptr);
        window.SetCommSettings(c.settings);
        EXPECT_EQ(List(window, "CMB_Port").currentText(), c.port);
        EXPECT_EQ(List(window, "CMB_Baud").currentText(), c.baud);
        EXPECT_EQ(window.findChild<QCheckBox*>()->isChecked(), c.keepOpen);
    }
}

TEST(SerialSettings, HandsOutWhatIsChosenAndNotWhatIsTyped)
{
    ScriptedPrompts prompts;
    SerialSettings window(prompts, nullptr);
    CommSettings chosen;
    const auto changed = window.CommSettingsChanged.Subscribe([&](const CommSettings& settings) {
        chosen = settings;
        EXPECT_EQ(prompts.busyPointers, 1);
    });
    window.SetCommSettings({1, 14400, "kept", true, 7, 5});
    window.show();
    auto& port = List(window, "CMB_Port");
    auto& baud = List(window, "CMB_Baud");
    QTest::keyClicks(port.lineEdit(), "9x");
    QTest::keyClick(baud.lineEdit(), Qt::Key_Backspace);
    EXPECT_EQ(port.currentText(), "COM 7");
    EXPECT_EQ(baud.currentText(), "14400");
    QTest::keyClick(&port, Qt::Key_Down);
    QTest::keyClick(&baud, Qt::Key_Down); // from none of the choices to the first
    QTest::keyClick(&baud, Qt::Key_Down);
    QTest::keyClick(window.findChild<QCheckBox*>(), Qt::Key_Space);
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_EQ(std::tie(chosen.kind, chosen.comPort, chosen.baudRate, chosen.keepLinkOpen, chosen.text),
              std::tuple(kSerialPortKind, 8, 19200, false, "kept"));
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(prompts.busyPointers, 0);
}

TEST(SerialDialogs, TellOnceThatTheyAreGivenUp)
{
    ScriptedPrompts prompts;
    SerialSettings settings(prompts, nullptr);
    NoCommHelp help(prompts, nullptr);
    int cancelled = 0;
    const auto left = settings.UserCancelled.Subscribe([&] { ++cancelled; });
    const auto changed = settings.CommSettingsChanged.Subscribe([](const CommSettings&) { ADD_FAILURE(); });
    const auto leftHelp = help.UserCancelledEvent.Subscribe([&] { ++cancelled; });
    for (const auto& giveUp : kWaysOut)
        for (QDialog* window : std::initializer_list<QDialog*>{&settings, &help}) {
            window->show();
            EXPECT_FALSE(help.UserCancelled());
            cancelled = 0;
            giveUp(*window);
            EXPECT_EQ(cancelled, 1);
            EXPECT_EQ(help.UserCancelled(), window == &help);
            EXPECT_FALSE(window->isVisible());
            help.show(); // forgets that it was given up
            QTest::keyClick(&help, Qt::Key_Return);
            EXPECT_FALSE(help.UserCancelled() || help.isVisible());
        }
}

TEST(NoCommHelp, TakesOverChangedSettings)
{
    ScriptedPrompts prompts;
    NoCommHelp window(prompts, nullptr);
    std::vector<std::int16_t> ports;
    const auto changed = window.SettingsChanged.Subscribe([&](const CommSettings& s) { ports.push_back(s.comPort); });
    window.InitSettings({1, 19200, "", true, 2, 0});
    EXPECT_EQ(window.findChild<QLineEdit*>("TXT_COM")->text(), "COM2");
    EXPECT_EQ(window.findChild<QLineEdit*>("TXT_Baud")->text(), "19200  Baud");
    window.show();
    OnceShown<QDialog>("SerialSettings", [](QDialog& settings) {
        QTest::keyClick(&List(settings, "CMB_Port"), Qt::Key_Down);
        Click(settings, "BTN_OK");
    });
    Click(window, "BTN_ChangeSettings");
    EXPECT_EQ(window.findChild<QLineEdit*>("TXT_COM")->text(), "COM3");
    EXPECT_EQ(ports, std::vector<std::int16_t>{3});
    Click(window, "BTN_Help");
    EXPECT_EQ(prompts.helpTopics, std::vector{std::optional(kConnectingTopic)});
}

TEST(QueryProgress, CanBeCancelledWhileWorkRunsAndNothingElseCan)
{
    for (const auto& giveUp : kWaysOut) {
        QPushButton behind("Read");
        QObject::connect(&behind, &QPushButton::clicked, &behind, [] { ADD_FAILURE(); });
        behind.show();
        behind.activateWindow(); // nobody else gives the focus where there is no window manager
        ASSERT_TRUE(QTest::qWaitForWindowActive(&behind));
        auto query = UserPrompts("").ShowQueryProgress();
        BusyState busy;
        const BusyGuard guard(busy); // the harder order: the window was there before
        auto* window = VisibleWindow("QueryProgress");
        ASSERT_NE(window, nullptr);
        QTest::mouseClick(behind.windowHandle(), Qt::LeftButton, {}, behind.rect().center());
        EXPECT_FALSE(query->Cancelled());
        giveUp(*window);
        EXPECT_TRUE(query->Cancelled());
        EXPECT_TRUE(window->isVisible()); // until the searcher has heard of it
        query.reset();
        EXPECT_EQ(VisibleWindow("QueryProgress"), nullptr);
    }
}

}

#include "comm/dialogs/SerialSettings.h"

#include "comm/dialogs/NoCommHelp.h"
#include "support/ScriptedPrompts.h"
#include "support/qt/QtTestTools.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace tarvex {

namespace {

std::string PortOf(QWidget& window) { return window.findChild<QComboBox*>("CMB_Port")->currentText().toStdString(); }
std::string BaudOf(QWidget& window) { return window.findChild<QComboBox*>("CMB_Baud")->currentText().toStdString(); }
std::string TextOf(QWidget& window, const char* box) { return window.findChild<QLineEdit*>(box)->text().toStdString(); }
void Click(QWidget& window, const char* button)
{
    QTest::mouseClick(window.findChild<QPushButton*>(button), Qt::LeftButton);
}

/// The ways in which a window is given up.
const std::function<void(QWidget&)> kWaysOut[] = {
    [](QWidget& window) { Click(window, "BTN_Cancel"); },
    [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); },
    [](QWidget& window) { window.close(); },
};

}

TEST(SerialSettings, ShowsTheSettingsOfASerialPort)
{
    const struct {
        CommSettings settings;
        std::string port, baud;
        bool keepOpen;
    } cases[] = {{{1, 38400, "", false, 3, 0}, "COM 3", "38400", false},
                 {{1, 57600, "", true, 20, 0}, "COM 1", "57600", true},
                 {{1, 14400, "", true, 16, 0}, "COM 16", "14400", true},
                 {{0, 38400, "", false, 3, 0}, "COM 1", "9600", true}};
    for (const auto& c : cases) {
        ScriptedPrompts prompts;
        SerialSettings window(prompts, nullptr);
        window.SetCommSettings(c.settings);
        EXPECT_EQ(PortOf(window), c.port);
        EXPECT_EQ(BaudOf(window), c.baud);
        EXPECT_EQ(window.findChild<QCheckBox*>("CHK_KeepOpen")->isChecked(), c.keepOpen);
    }
}

TEST(SerialSettings, HandsOutWhatIsChosenAndNotWhatIsTyped)
{
    ScriptedPrompts prompts;
    SerialSettings window(prompts, nullptr);
    std::vector<CommSettings> chosen;
    const auto changed = window.CommSettingsChanged.Subscribe([&](const CommSettings& settings) {
        chosen.push_back(settings);
        EXPECT_EQ(prompts.busyPointers, 1);
        EXPECT_TRUE(window.isVisible());
    });
    window.SetCommSettings({1, 14400, "kept", true, 7, 5});
    window.show();
    auto* port = window.findChild<QComboBox*>("CMB_Port");
    auto* baud = window.findChild<QComboBox*>("CMB_Baud");
    QTest::keyClicks(port->lineEdit(), "9x");
    QTest::keyClick(baud->lineEdit(), Qt::Key_Backspace);
    EXPECT_EQ(PortOf(window), "COM 7");
    EXPECT_EQ(BaudOf(window), "14400");
    QTest::keyClick(port, Qt::Key_Down);
    QTest::keyClick(baud, Qt::Key_Down); // from none of the choices to the first
    QTest::keyClick(baud, Qt::Key_Down);
    QTest::keyClick(window.findChild<QCheckBox*>("CHK_KeepOpen"), Qt::Key_Space);
    QTest::keyClick(&window, Qt::Key_Return);

    ASSERT_EQ(chosen.size(), 1U);
    EXPECT_EQ(chosen[0].kind, kSerialPortKind);
    EXPECT_EQ(chosen[0].comPort, 8);
    EXPECT_EQ(chosen[0].baudRate, 19200);
    EXPECT_FALSE(chosen[0].keepLinkOpen);
    EXPECT_EQ(chosen[0].text, "kept");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(prompts.busyPointers, 0);
}

TEST(SerialSettings, IsGivenUpInEveryWayOnce)
{
    for (const auto& giveUp : kWaysOut) {
        ScriptedPrompts prompts;
        SerialSettings window(prompts, nullptr);
        int cancelled = 0;
        const auto heard = window.UserCancelled.Subscribe([&] { ++cancelled; });
        const auto changed = window.CommSettingsChanged.Subscribe([](const CommSettings&) { ADD_FAILURE(); });
        window.show();
        giveUp(window);
        EXPECT_EQ(cancelled, 1);
        EXPECT_FALSE(window.isVisible());
    }
}

TEST(NoCommHelp, TakesOverChangedSettings)
{
    ScriptedPrompts prompts;
    NoCommHelp window(prompts, nullptr);
    std::vector<CommSettings> changes;
    const auto changed = window.SettingsChanged.Subscribe([&](const CommSettings& each) { changes.push_back(each); });
    window.InitSettings({0, 19200, "", true, 2, 0});
    EXPECT_EQ(TextOf(window, "TXT_COM"), "COM2");
    EXPECT_EQ(TextOf(window, "TXT_Baud"), "19200  Baud");
    window.InitSettings({1, 19200, "", true, 2, 0});
    window.show();
    OnceShown<QDialog>("SerialSettings", [](QDialog& settings) {
        EXPECT_EQ(PortOf(settings), "COM 2");
        QTest::keyClick(settings.findChild<QComboBox*>("CMB_Port"), Qt::Key_Down);
        Click(settings, "BTN_OK");
    });
    Click(window, "BTN_ChangeSettings");
    EXPECT_EQ(TextOf(window, "TXT_COM"), "COM3");
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].comPort, 3);
    Click(window, "BTN_Help");
    EXPECT_EQ(prompts.helpTopics, std::vector{std::optional(kConnectingTopic)});
}

TEST(NoCommHelp, KnowsWhetherTheUserGaveUpOrRetries)
{
    ScriptedPrompts prompts;
    NoCommHelp window(prompts, nullptr);
    int cancelled = 0;
    const auto heard = window.UserCancelledEvent.Subscribe([&] { ++cancelled; });
    for (const auto& giveUp : kWaysOut) {
        window.show();
        EXPECT_FALSE(window.UserCancelled());
        giveUp(window);
        EXPECT_TRUE(window.UserCancelled());
        EXPECT_FALSE(window.isVisible());
    }
    window.show();
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_FALSE(window.UserCancelled());
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(cancelled, 3);
}

}

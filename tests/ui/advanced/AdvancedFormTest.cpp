#include "ui/advanced/AdvancedFormFixture.h"

#include "support/ExpectError.h"
#include "ui/advanced/MainMenus.h"

#include <QDialog>
#include <QMenuBar>

namespace tarvex {

namespace {

using Captions = QStringList;

Captions CaptionsOf(const QMenu& menu)
{
    Captions captions;
    for (const QAction* entry : menu.actions())
        if (!entry->isSeparator())
            captions << entry->text();
    return captions;
}

}

TEST_F(AdvancedFormTest, ShowsItsMenusAndWaitsForAProduct)
{
    Start();
    EXPECT_TRUE(form_.isVisible());
    EXPECT_EQ(form_.windowTitle(), "Tarvex");
    EXPECT_EQ(Status(), "Select a product or Open File");
    const struct {
        const char* menu;
        const char* caption;
        Captions entries;
    } kMenus[] = {{"File", "File", {"Open", "Save", "Save As", "Quit"}},
                  {"Product",
                   "&Product",
                   {"Vexlon", "Vexlon-Fx_Channel1", "Vexlon-Fx_Channel2", "Vexlon-Fx_Channel3", "Kestra-Fx", "Cendra",
                    "Ossary", "Ossary-Plus"}},
                  {"Options", "&Options", {"&Preferences", "Serial Settings"}},
                  {"PreferenceMenu", "&Preferences", {"AutoLoad on File Open", "AutoConnect"}},
                  {"Communication", "Communication", {"Select Product"}}};
    for (const auto& each : kMenus) {
        EXPECT_EQ(Find<QMenu>(each.menu).title(), each.caption);
        EXPECT_EQ(CaptionsOf(Find<QMenu>(each.menu)), each.entries) << each.menu;
    }
    EXPECT_EQ(Find<QMenu>("Help").title(), "Help");
    EXPECT_EQ(Entry("VersionDlg").text(), "Version Info");
    EXPECT_FALSE(Entry("SerialPortSettings").isVisible());
    for (const char* button : {"BTN_Read", "BTN_Load"})
        EXPECT_FALSE(Find<QPushButton>(button).isEnabled());
    for (const char* hidden : {"RegisterDisplay1", "VScroll1", "TXT_ZorbusID", "TXT_ChannelNum", "ProgressBar1"})
        EXPECT_FALSE(IsShown(hidden)) << hidden;
    EXPECT_EQ(form_.SelectedProductName(), "");

    QMenuBar bar;
    const MainMenus menus(bar, busy_, {});
    EXPECT_EQ(CaptionsOf(*bar.findChild<QMenu*>("Product")), Captions{"No Products"});
}

TEST_F(AdvancedFormTest, ControlsHaveTheirCaptions)
{
    StartWith("Ossary-Plus");
    const std::pair<const char*, const char*> kLabels[] = {{"Label3", "Address"},
                                                           {"Label4", "Name"},
                                                           {"Label5", "Bit(s) 7:0"},
                                                           {"LBL_ZorbusID", "ZorbusID:"},
                                                           {"TXT_ChannelLabel", "Channel:"}};
    for (const auto& [name, caption] : kLabels)
        EXPECT_EQ(Find<QLabel>(name).text(), caption);
    EXPECT_EQ(Find<QPushButton>("BTN_Read").text(), "Read Configuration");
    EXPECT_EQ(Find<QPushButton>("BTN_Load").text(), "Load Configuration");
    EXPECT_EQ(Find<QCheckBox>("CHK_RealTime").text(), "Real Time Update");
    for (const char* address : {"LBL_ZorbusID", "TXT_ZorbusID", "TXT_ChannelLabel", "TXT_ChannelNum"})
        EXPECT_TRUE(IsShown(address)) << address;
    EXPECT_EQ(LineText("TXT_ZorbusID") + " " + LineText("TXT_ChannelNum"), "0x333 1");

    // Each heading stands over its column.
    const QWidget& row = *Rows().front();
    const std::pair<const char*, const char*> kColumns[] = {
        {"Label3", "GroupLabel"}, {"Label4", "NameLabel"}, {"Label5", "Bit_7"}};
    for (const auto& [heading, column] : kColumns)
        EXPECT_EQ(Find<QWidget>(heading).mapTo(&form_, QPoint()).x(),
                  row.findChild<QWidget*>(column)->mapTo(&form_, QPoint()).x())
            << heading;

    Entry("ProductMenu_0").trigger();
    EXPECT_FALSE(IsShown("TXT_ZorbusID") || IsShown("TXT_ChannelNum"));
}

TEST_F(AdvancedFormTest, PreferencesAreShownAndSavedOnce)
{
    settings_.values = {{{"UserPreferences", "AutoConnect"}, "True"},
                        {{"UserPreferences", "AutoLoadFileOpen"}, "False"},
                        {{"UserPreferences", "LastZorbusID"}, "0x123456"},
                        {{"UserPreferences", "LastChannel"}, "7"}};
    Start();
    EXPECT_TRUE(Entry("AutoConnect").isChecked());
    EXPECT_FALSE(Entry("AutoLoadFileOpen").isChecked());
    EXPECT_EQ(LineText("TXT_ZorbusID") + " " + LineText("TXT_ChannelNum"), "0x123456 7");

    Entry("AutoConnect").trigger();
    Entry("AutoLoadFileOpen").trigger();
    EXPECT_FALSE(form_.GetAppPreference("AutoConnect"));
    EXPECT_TRUE(form_.GetAppPreference("AutoLoadFileOpen"));
    ExpectError([this] { form_.GetAppPreference("Sound"); }, 402, "AdvancedForm::GetAppPreference",
                "Preference Sound not defined");
    form_.SetPrefAutoLoadOnOpen(false);
    EXPECT_FALSE(Entry("AutoLoadFileOpen").isChecked());
    form_.SetZorbusID(0x333);
    form_.SetChannelNum(12);
    form_.Unload();
    form_.Unload();
    const auto saved = [this](const char* key) { return settings_.values.at({"UserPreferences", key}); };
    EXPECT_EQ(saved("AutoConnect") + saved("AutoLoadFileOpen") + saved("LastZorbusID") + saved("LastChannel"),
              "FalseFalse0x33312");
    EXPECT_EQ(settings_.flushes, 1);
}

TEST_F(AdvancedFormTest, MenusRestWhileTheBoardIsAtWork)
{
    StartWith("Vexlon");
    const auto enabled = [this] {
        const auto tops = form_.menuBar()->actions();
        return std::count_if(tops.begin(), tops.end(), [](const QAction* top) { return top->isEnabled(); });
    };
    EXPECT_EQ(enabled(), 5);
    {
        const BusyGuard busy(busy_);
        EXPECT_EQ(enabled(), 0);
        Entry("ProductMenu_5").trigger(); // as a shortcut could
        Entry("Quit").trigger();
    }
    EXPECT_EQ(enabled(), 5);
    EXPECT_EQ(form_.SelectedProductName(), "Vexlon");
    EXPECT_FALSE(ExitState::Pending());
}

TEST_F(AdvancedFormTest, TheStatusTextGoesByItself)
{
    Start();
    form_.SetStatusRefreshInterval(0);
    form_.DisplayStatusMessage("gone in a moment");
    EXPECT_EQ(Status(), "gone in a moment");
    EXPECT_TRUE(RunUntil([this] { return Status().isEmpty(); }));
}

TEST_F(AdvancedFormTest, TheVersionDialogTellsWhatIsInstalled)
{
    StartWith("Vexlon");
    std::map<QString, QString> texts;
    const auto show = [&] {
        OnceShown<QDialog>("VersionDlg", [&](QDialog& dialog) {
            for (const QLabel* label : dialog.findChildren<QLabel*>())
                texts[label->objectName()] = label->text();
            QTest::mouseClick(dialog.findChild<QPushButton*>("BTN_OK"), Qt::LeftButton);
        });
        Entry("VersionDlg").trigger();
    };
    show();
    EXPECT_TRUE(texts["LBL_Title"].startsWith("Tarvex v"));
    EXPECT_TRUE(texts["LBL_Built"].startsWith("Built: "));
    EXPECT_FALSE(texts["LBL_Copyright"].isEmpty());
    EXPECT_TRUE(texts["LBL_LibVersion"].contains("not connected"));
    EXPECT_TRUE(texts["LBL_FirmwareVersion"].contains("not connected"));
    EXPECT_EQ(texts["LBL_InitFileVersion"], "Init file version: 2.5.0 (/prog/Tarvex.xml)");
    Click("BTN_Read");
    show();
    EXPECT_TRUE(texts["LBL_FirmwareVersion"].contains("v0.0"));
}

TEST_F(AdvancedFormTest, TabGoesFromLeftToRightAndFromTopToBottom)
{
    StartWith("Cendra");
    std::vector<QWidget*> stops;
    QWidget* const first = &Value(NameOf(*Rows().front()));
    first->setFocus(Qt::TabFocusReason);
    for (QWidget* stop = first; stops.empty() || (stop != first && stops.size() < 200);
         stop = QApplication::focusWidget()) {
        stops.push_back(stop);
        QTest::keyClick(stop, Qt::Key_Tab);
    }
    const auto place = [this](const QWidget* stop) { return QRect(stop->mapTo(&form_, QPoint()), stop->size()); };
    EXPECT_EQ(stops.size(), Rows().size() * 9 + 5);
    for (std::size_t i = 1; i < stops.size(); ++i) {
        const QRect before = place(stops[i - 1]), after = place(stops[i]);
        EXPECT_TRUE(after.top() > before.bottom() || after.left() > before.right())
            << stops[i - 1]->objectName().toStdString() << " to " << stops[i]->objectName().toStdString();
    }
}

TEST_F(AdvancedFormTest, ARemovedBoardIsLetGoOf)
{
    auto board = std::make_shared<FakeDevice>();
    board->type = "USB-HID Device";
    links_["USB-HID Device"] = [&] { return board; };
    Start();
    form_.DeviceRemoved("pulled out"); // the demo board cannot be
    EXPECT_EQ(errors_.entries.size(), 0U);
    StartWith("Vexlon");
    {
        const BusyGuard busy(busy_);
        form_.DeviceRemoved("pulled out");
        EXPECT_TRUE(board->connected); // not in the middle of a transfer
    }
    EXPECT_TRUE(RunUntil([&] { return !board->connected; }));
    EXPECT_EQ(Status(), "Comm Failure recieved in Advanced Form");
    ASSERT_EQ(errors_.entries.size(), 1U);
    EXPECT_EQ(errors_.entries[0].description, "pulled out");
}

}

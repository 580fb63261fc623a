#include "ui/advanced/AdvancedFormFixture.h"

#include <QScrollBar>

namespace tarvex {

TEST_F(AdvancedFormTest, RegistersAreSetByValueAndByBitAndComeBackFromTheBoard)
{
    StartWith("Vexlon");
    EXPECT_EQ(Status(),
              "Vexlon supports multiple communication links.  Select one on the Communication menu to connect.");
    EXPECT_EQ(Find<QMenu>("Communication").actions().size(), 2);
    EXPECT_TRUE(Entry("ProductMenu_0").isChecked());
    EXPECT_TRUE(Entry("CommLinkMenu_1").isChecked()); // the demo board
    Click("BTN_Read");
    EXPECT_EQ(Status(), "24 registers read, none failed.");
    EXPECT_EQ(Value("Red Gain").text(), "1"); // what a demo board holds that was never written

    Type("Red Gain", "3C");
    EXPECT_EQ(Bit("Red Gain", 5).text() + Bit("Red Gain", 0).text(), "10");
    QTest::mouseClick(&Bit("Green Gain", 7), Qt::LeftButton);
    EXPECT_EQ(Value("Green Gain").text(), "81");
    Click("BTN_Load");
    EXPECT_EQ(Status(), "2 registers written, none failed.");

    Type("Red Gain", "FF");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F5);
    EXPECT_TRUE(RunUntil([this] { return Value("Red Gain").text() == "3C"; }));
    EXPECT_EQ(Value("Green Gain").text(), "81");
    prompts_.ExpectMessage("No register data to write, application is in sync with device.  Resend all anyway?",
                           Answer::No);
    Click("BTN_Load");
}

TEST_F(AdvancedFormTest, RealTimeEditsReachTheBoardAtOnce)
{
    StartWith("Vexlon");
    Click("BTN_Read");
    ClickRealTime();
    EXPECT_TRUE(Find<QCheckBox>("CHK_RealTime").isChecked());
    Type("Blue Gain", "A5");
    Click("BTN_Read");
    EXPECT_TRUE(Find<QCheckBox>("CHK_RealTime").isChecked());
    EXPECT_EQ(Value("Blue Gain").text(), "A5");
    ClickRealTime();
    Type("Blue Gain", "7F");
    Click("BTN_Read");
    EXPECT_EQ(Value("Blue Gain").text(), "A5");

    form_.LockRealTime();
    EXPECT_TRUE(Find<QCheckBox>("CHK_RealTime").isChecked());
    EXPECT_FALSE(Find<QCheckBox>("CHK_RealTime").isEnabled());
    prompts_.ExpectOpenFile(std::nullopt);
    Entry("Open").trigger();
    EXPECT_TRUE(Find<QCheckBox>("CHK_RealTime").isChecked());
}

TEST_F(AdvancedFormTest, ASingleRegisterIsReadFromItsMenu)
{
    StartWith("Vexlon");
    const QString other = Value("Blue Gain").text();
    auto* menu = Row("Red Gain").findChild<QMenu*>("mnuPopup");
    for (QAction* entry : menu->actions())
        if (entry->text() == "Read Value")
            entry->trigger();
    EXPECT_EQ(Value("Red Gain").text(), "1");
    EXPECT_EQ(Value("Blue Gain").text(), other);
    EXPECT_EQ(Status(), "1 register read, none failed.");
}

TEST_F(AdvancedFormTest, OnlyEscapeIsHeardWhileTheBoardIsRead)
{
    auto board = std::make_shared<FakeDevice>();
    board->type = "USB-HID Device";
    links_["USB-HID Device"] = [&] { return board; };
    StartWith("Vexlon");
    Type("Red Gain", "3C");
    board->transfers.clear();
    board->onTransfer = [&](const auto&) {
        EXPECT_TRUE(IsShown("ProgressBar1"));
        EXPECT_EQ(Status(), "Reading register value for " + NameOf(*Rows()[board->transfers.size() - 1]));
        Click("BTN_Load");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
        if (board->transfers.size() == 3)
            QTest::keyClick(&form_, Qt::Key_Escape);
    };
    Click("BTN_Read");
    EXPECT_EQ(board->transfers.size(), 3U);
    EXPECT_EQ(Status(), "3 registers read, none failed. Cancelled with Escape.");
    EXPECT_EQ(Value("Red Gain").text(), "0");
    EXPECT_FALSE(IsShown("ProgressBar1"));
}

TEST_F(AdvancedFormTest, TheScrollBarAndTheKeysReachEveryRegister)
{
    StartWith("Vexlon");
    auto& bar = Find<QScrollBar>("VScroll1");
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.maximum(), 24 - 16);
    EXPECT_EQ(bar.height(), Find<QWidget>("RegisterDisplay1").height());
    EXPECT_EQ(NameOf(*Rows().front()), "Scratch");
    bar.setValue(2);
    EXPECT_EQ(NameOf(*Rows().front()), "Green Gain");
    bar.setValue(0);

    Value(NameOf(*Rows().back())).setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(bar.value(), 1);
    EXPECT_EQ(QApplication::focusWidget(), &Value(NameOf(*Rows().back())));
    for (int page = 0; page < 2; ++page)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
    EXPECT_EQ(bar.value(), bar.maximum());
    Type(NameOf(*Rows().back()), "7E"); // of the register that is shown now, not of its row's first one
    const QString last = NameOf(*Rows().back());
    bar.setValue(0);
    bar.setValue(bar.maximum());
    EXPECT_EQ(Value(last).text(), "7E");

    Entry("ProductMenu_1").trigger(); // another long list, from its top
    EXPECT_EQ(form_.SelectedProductName(), "Vexlon-Fx_Channel1");
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.value(), 0);
    EXPECT_EQ(NameOf(*Rows().front()), "Scratch");

    Entry("ProductMenu_4").trigger();
    EXPECT_EQ(form_.SelectedProductName(), "Kestra-Fx");
    EXPECT_FALSE(bar.isVisible());
    EXPECT_LT(Rows().size(), 16U);
}

TEST_F(AdvancedFormTest, OtherViewsRefreshTheirRegister)
{
    StartWith("Vexlon");
    Type("Red Gain", "3C");
    for (const std::int32_t kind : {kRegisterChanged, kPropertyChanged, kEverythingChanged})
        form_.UpdateUI(kind, kind == kRegisterChanged ? "Red Gain" : "");
    EXPECT_EQ(Value("Red Gain").text(), "3C");
    prompts_.ExpectSaveFile("/data/settings.xml");
    Entry("SaveAs").trigger();
    EXPECT_EQ(form_.windowTitle(), "Tarvex-Advanced View-/data/settings.xml");
    Type("Red Gain", "11");
    prompts_.ExpectOpenFile("/data/settings.xml");
    Entry("Open").trigger();
    EXPECT_EQ(Value("Red Gain").text(), "3C"); // saved and opened again
}

TEST_F(AdvancedFormTest, WideRegistersAreShownWholeInTheirTip)
{
    InitFileBuilder file;
    file.wordSize = "2";
    file.links += InitFileBuilder::LinkXml("USB-HID Device", "NVSignalProcessing"); // so that nothing is read yet
    file.registers = RegisterXml("Wide", "20", Xml("Default", "1234") + BitsXml("ReadWrite", "0:7"));
    InitFileBuilder empty;
    empty.component = empty.device = "Bare";
    empty.registers.clear();
    files_.files["/prog/Tarvex.xml"] = file.Text(empty.Component());
    StartWith("Board");
    EXPECT_TRUE(Value("Wide").isReadOnly());
    EXPECT_EQ(Bit("Wide", 0).text(), "");
    EXPECT_EQ(Row("Wide").findChild<QLabel*>("NameLabel")->toolTip(), "Value: 0x1234");
    EXPECT_TRUE(IsShown("RegisterDisplay1"));

    Entry("ProductMenu_1").trigger();
    EXPECT_FALSE(IsShown("RegisterDisplay1"));
    EXPECT_TRUE(IsShown("Hint"));
}

}

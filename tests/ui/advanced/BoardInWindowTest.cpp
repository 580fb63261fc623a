#include "ui/advanced/AdvancedFormFixture.h"

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
    EXPECT_EQ(Marked(), (QStringList{"Red Gain", "Green Gain"}));
    Find<QScrollBar>("VScroll1").setValue(2); // the rows show other registers
    EXPECT_EQ(Marked(), QStringList("Green Gain"));
    Find<QScrollBar>("VScroll1").setValue(0);
    Click("BTN_Load");
    EXPECT_EQ(Status(), "2 registers written, none failed.");
    EXPECT_EQ(Marked(), QStringList());

    Type("Red Gain", "FF");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F5);
    EXPECT_TRUE(RunUntil([this] { return Value("Red Gain").text() == "3C"; }));
    EXPECT_EQ(Value("Green Gain").text(), "81");
    prompts_.ExpectMessage("No register data to write, application is in sync with device.  Resend all anyway?",
                           Answer::No);
    Click("BTN_Load");
}

TEST_F(AdvancedFormTest, OnlyEscapeIsHeardWhileTheBoardIsRead)
{
    const auto board = PlugIn();
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

TEST_F(AdvancedFormTest, WhatIsSavedIsThereWhenItIsOpenedAgain)
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
    for (const Answer discards : {Answer::No, Answer::Yes}) {
        EXPECT_EQ(Value("Red Gain").text(), "11");
        prompts_.ExpectOpenFile("/data/settings.xml");
        prompts_.ExpectMessage(
            "1 changed register has been neither loaded into the board nor saved. Discard the changes?", discards);
        Entry("Open").trigger();
    }
    EXPECT_EQ(Value("Red Gain").text(), "3C");
}

}

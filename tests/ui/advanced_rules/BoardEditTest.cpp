#include "ui/advanced_rules/BoardFixture.h"

namespace tarvex {

TEST_F(BoardTest, ARefusedValueIsPutBack)
{
    StartWithVexlon();
    view_.realTime = true;
    board_->EditRegister("R1", 0x3C);
    usb_->transfers.clear();
    view_.shownRows.clear();
    view_.echo = [this] { board_->EditRegister("R1", 256); };
    for (const std::int32_t value : {256, -1}) {
        board_->EditRegister("R1", value);
        EXPECT_EQ(Register("R1").value(), 0x3C);
    }
    EXPECT_EQ(view_.shownRows, (std::vector<std::int16_t>{1, 1}));
    EXPECT_EQ(errors_.entries.size(), 2U);
    EXPECT_EQ(usb_->transfers.size(), 0U);
}

TEST_F(BoardTest, RealTimeEditsAreWrittenAtOnce)
{
    StartBesideWizard();
    view_.realTime = true;
    board_->EditRegister("R3", 0x3C);
    EXPECT_EQ(Writes(), Ids{0x23});
    EXPECT_EQ(Changed(), Names());
    EXPECT_EQ(journal_, Names{"wizard: UpdateUI 1 R3"});
    EXPECT_TRUE(board_->IsModified()); // the file does not have it

    board_->EditRegister("R3", 0x3C);
    EXPECT_EQ(Writes(), (Ids{0x23, 0x23})); // the only view writes a value again
    board_->SetAsSecondaryView(true);
    board_->EditRegister("R3", 0x3C);
    EXPECT_EQ(Writes().size(), 2U); // a second one only reports what it was told
    board_->EditRegister("R3", 0x3D);
    EXPECT_EQ(Writes().size(), 3U);
}

TEST_F(BoardTest, AFailedRealTimeWriteStaysMarked)
{
    StartWithVexlon();
    view_.realTime = true;
    FailAt(0x23);
    prompts_.ExpectMessage("No answer");
    board_->EditRegister("R3", 0x3C);
    EXPECT_EQ(Changed(), Names{"R3"});
    EXPECT_EQ(Status(), "Failed to write R3. It stays marked for Load Configuration.");
}

}

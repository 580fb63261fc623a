#include "ui/advanced_rules/BoardFixture.h"

namespace tarvex {

namespace {

const std::string kResendAll = "No register data to write, application is in sync with device.  Resend all anyway?";
const std::string kReadAgain = "Not every register could be read. Read the configuration again.";

Bytes One(std::uint8_t value) { return {value}; }

}

TEST_F(BoardTest, RealTimeUpdateRestsWhileTheBoardIsRead)
{
    StartWithVexlon();
    usb_->memory[{0x451, 0x23}] = One(0x5A);
    view_.realTime = true;
    view_.echo = [this] { // the grid reports values that it takes
        for (const char* name : {"R2", "R3"})
            board_->EditRegister(name, 1);
    };
    usb_->onTransfer = [this](const auto&) {
        EXPECT_FALSE(view_.RealTime());
        EXPECT_GT(busyDepth_, 0);
    };
    board_->ReadConfiguration();
    EXPECT_EQ(Writes(), Ids());
    EXPECT_EQ(Register("R3").value(), 0x5A);
    EXPECT_TRUE(view_.realTime);
    EXPECT_FALSE(board_->IsModified());
    EXPECT_EQ(busyDepth_, 0);
}

TEST_F(BoardTest, ABoardThatDoesNotAnswerIsNotRead)
{
    StartWithVexlon();
    usb_->verifies = false;
    prompts_.ExpectMessage("Unable to connect or verify communications to device Vexlon on USB-HID Device");
    board_->ReadConfiguration();
    EXPECT_EQ(Reads(), Ids());
}

TEST_F(BoardTest, FailedReadsLeaveEveryMarkAsItWas)
{
    StartWithVexlon();
    Register("R5").AddDependency(document_->controller().GetI2CRegisterByName("R7"));
    board_->EditRegister("R2", 0x11);
    board_->EditRegister("R5", 0x22);
    board_->EditRegister("R7", 0x33);
    board_->EditRegister("R0", 0x44);
    FailAt(0x22);
    FailAt(0x27); // also what follows R5
    FailAt(0x21);
    prompts_.ExpectMessage("No answer");
    board_->ReadConfiguration();
    EXPECT_EQ(Changed(), (Names{"R2", "R5", "R7"}));
    EXPECT_EQ(Register("R2").value(), 0x11);
    EXPECT_EQ(Register("R0").value(), 0);
    EXPECT_EQ(Status(), "4 registers read, 4 failed.");
    EXPECT_EQ(errors_.entries.size(), 4U);
}

TEST_F(BoardTest, ARunStopsAfterMoreThanFiveFailures)
{
    StartWithVexlon();
    for (int id = 0x20; id < 0x26; ++id)
        FailAt(id);
    for (const auto& object : AllRegisters(document_->controller()))
        object->value(1);
    prompts_.ExpectMessage("No answer");
    board_->LoadConfiguration();
    EXPECT_EQ(Status(), "0 registers written, 6 failed. Stopped after too many failures.");
    EXPECT_EQ(Changed().size(), std::size_t{kRegisters});

    usb_->raiseAt.erase({0x451, 0x23});
    prompts_.ExpectMessage("No answer");
    board_->ReadConfiguration();
    EXPECT_EQ(Status(), "3 registers read, 5 failed.");
}

TEST_F(BoardTest, EscapeEndsAReadBetweenTwoRegisters)
{
    StartWithVexlon();
    usb_->memory[{0x451, 0x22}] = One(0x5A);
    wait_.onBreathe = [this] { wait_.cancelled = Reads().size() == 3; };
    board_->ReadConfiguration();
    EXPECT_EQ(Reads(), (Ids{0x20, 0x21, 0x22}));
    EXPECT_EQ(Register("R2").value(), 0x5A);
    EXPECT_EQ(view_.shownWhole, 2);
    EXPECT_EQ(screen_.progress.back(), "hide");
    EXPECT_EQ(Status(), "3 registers read, none failed. Cancelled with Escape.");
    board_->LoadConfiguration();
    EXPECT_EQ(Status(), kReadAgain);
}

TEST_F(BoardTest, LoadingWritesExactlyTheEditedRegistersAndAsksWhenThereAreNone)
{
    StartBesideWizard();
    board_->EditRegister("R6", 0x66);
    board_->EditRegister("R1", 0x11);
    EXPECT_EQ(usb_->transfers.size(), 0U);
    board_->LoadConfiguration();
    EXPECT_EQ(Writes(), (Ids{0x21, 0x26}));
    EXPECT_EQ(usb_->transfers[1].bytes, One(0x66));
    EXPECT_EQ(Changed(), Names());
    EXPECT_EQ(Status(), "2 registers written, none failed.");
    EXPECT_EQ(journal_, Names{"wizard: UpdateUI 0 "});

    usb_->transfers.clear();
    for (const auto& [answer, writes] : {std::pair(Answer::No, 0), std::pair(Answer::Yes, kRegisters)}) {
        prompts_.ExpectMessage(kResendAll, answer);
        board_->LoadConfiguration();
        EXPECT_EQ(usb_->transfers.size(), static_cast<std::size_t>(writes));
    }
}

TEST_F(BoardTest, LoadingAfterAnIncompleteReadAsksNothing)
{
    StartWithVexlon();
    FailAt(0x22);
    prompts_.ExpectMessage("No answer");
    board_->ReadConfiguration();
    board_->LoadConfiguration();
    EXPECT_EQ(Status(), kReadAgain);
    EXPECT_EQ(Writes(), Ids());

    board_->EditRegister("R1", 0x11); // what was edited can be written all the same
    board_->LoadConfiguration();
    EXPECT_EQ(Writes(), Ids{0x21});

    usb_->raiseAt.clear();
    board_->ReadConfiguration();
    prompts_.ExpectMessage(kResendAll, Answer::No);
    board_->LoadConfiguration();
}

TEST_F(BoardTest, AFailedWriteStaysMarked)
{
    StartWithVexlon();
    for (const char* name : {"R1", "R2", "R3"})
        board_->EditRegister(name, 0x55);
    FailAt(0x22);
    prompts_.ExpectMessage("No answer");
    board_->LoadConfiguration();
    EXPECT_EQ(Changed(), Names{"R2"});
    EXPECT_EQ(Status(), "2 registers written, 1 failed.");

    usb_->raiseAt.clear();
    usb_->transfers.clear();
    board_->LoadConfiguration();
    EXPECT_EQ(Writes(), Ids{0x22});
    EXPECT_EQ(Status(), "1 register written, none failed.");
}

}

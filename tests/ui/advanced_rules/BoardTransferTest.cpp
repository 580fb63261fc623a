#include "model/RegisterObject.h"
#include "ui/advanced/RegisterTransfer.h"
#include "ui/advanced_rules/BoardFixture.h"

namespace tarvex {

const std::string kResendAll = "No register data to write, application is in sync with device.  Resend all anyway?";
const std::string kReadAgain = "Not every register could be read. Read the configuration again.";

TEST_F(BoardTest, RealTimeUpdateRestsWhileTheBoardIsRead)
{
    StartWithVexlon();
    usb_->memory[{0x451, 0x23}] = {0x5A};
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

TEST_F(BoardTest, FailedReadsLeaveEveryMarkAsItWas)
{
    StartWithVexlon();
    Register("R5").AddDependency(document_->controller().GetI2CRegisterByName("R7"));
    for (const char* name : {"R0", "R2", "R5", "R7"})
        board_->EditRegister(name, 0x11);
    for (const std::int32_t id : {0x21, 0x22, 0x27}) // the last also follows R5
        FailAt(id);
    prompts_.ExpectMessage("No answer");
    board_->ReadConfiguration();
    EXPECT_EQ(Changed(), (Names{"R2", "R5", "R7"}));
    EXPECT_EQ(Register("R2").value(), 0x11);
    EXPECT_EQ(Register("R0").value(), 0);
    EXPECT_EQ(Status(), "4 registers read, 4 failed.");
    EXPECT_EQ(errors_.entries.size(), 4U);

    usb_->raiseAt.clear();
    board_->ReadSingleRegister("R5"); // and R7 after it, which the user did not ask for
    EXPECT_EQ(Changed(), (Names{"R2", "R7"}));
    EXPECT_EQ(Register("R7").value(), 0x11);
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

TEST_F(BoardTest, LoadingWritesExactlyTheEditedRegistersAndAsksWhenThereAreNone)
{
    StartBesideWizard();
    board_->EditRegister("R6", 0x66);
    board_->EditRegister("R1", 0x11);
    EXPECT_EQ(usb_->transfers.size(), 0U);
    board_->LoadConfiguration();
    EXPECT_EQ(Writes(), (Ids{0x21, 0x26}));
    EXPECT_EQ(usb_->transfers[1].bytes, Bytes{0x66});
    EXPECT_EQ(Changed(), Names());
    EXPECT_EQ(Status(), "2 registers written, none failed.");
    EXPECT_EQ(journal_, Names{"wizard: UpdateUI 0 "});

    usb_->transfers.clear();
    for (const auto& [answer, writes] : {std::pair(Answer::No, 0), std::pair(Answer::Yes, kRegisters)}) {
        prompts_.ExpectMessage(kResendAll, answer);
        board_->LoadConfiguration();
        EXPECT_EQ(usb_->transfers.size(), static_cast<std::size_t>(writes));
    }
    journal_.clear();
    board_->SetAsSecondaryView(true);
    prompts_.ExpectMessage(kResendAll, Answer::No);
    board_->LoadConfiguration();
    EXPECT_EQ(journal_, Names{"wizard: UpdateUI 0 "}); // it reads what it has lost hold of before that is said
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
    journal_.clear();
    FailAt(0x24);
    prompts_.ExpectMessage("No answer");
    board_->EditRegister("R4", 1);
    EXPECT_EQ(Changed(), Names{"R4"});
    EXPECT_EQ(journal_, Names()); // a wizard would read it again, and with it the edit would go
}

TEST(RegisterTransfer, TakesFailuresFromTheCountsOfTheLinkAndOfWhatDepends)
{
    FakeDevice device;
    TransferCounts counts{3, 0};                                // of earlier runs
    device.onTransfer = [&](const FakeDevice::Transfer& each) { // as real links report
        ++(device.mute.contains({1, each.parameterId}) ? counts.failures : counts.successes);
    };
    FakeErrorLog errors;
    std::vector<std::shared_ptr<RegisterObject>> registers;
    for (std::int32_t id = 0; id < 4; ++id) {
        registers.push_back(std::make_shared<RegisterObject>());
        registers.back()->Init(1, id, 8, 8, "R" + std::to_string(id), "");
    }
    registers[2]->AddDependency(registers[1]);
    registers[1]->AddDependency(registers[2]); // a circle
    registers[1]->value(5);
    registers[3]->value(6);
    const auto expect = [&](const TransferResult& result, int done, int failed, const std::string& marks) {
        EXPECT_EQ(std::tie(result.done, result.failed), std::tie(done, failed));
        std::string left;
        for (const auto& object : registers)
            left += object->IsDirty() ? '*' : '-';
        EXPECT_EQ(left, marks);
    };
    RegisterTransfer transfer(device, counts, errors);
    device.mute = {{1, 1}};
    expect(transfer.Read(registers), 2, 2, "-*--");
    expect(transfer.Write(registers), 2, 2, "-**-"); // the value of either may not have arrived
    device.mute.clear();
    expect(transfer.Write(registers), 4, 0, "----");
    registers[1]->ClearDependencies(); // or the circle keeps itself alive
}

}

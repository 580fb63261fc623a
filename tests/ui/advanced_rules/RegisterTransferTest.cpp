#include "ui/advanced/RegisterTransfer.h"

#include "model/RegisterObject.h"
#include "support/FakeDevice.h"
#include "support/FakeErrorLog.h"

#include <gtest/gtest.h>

namespace tarvex {

namespace {

/// Registers 0 to 3 of a board whose link reports the end of each transfer, as real links do. Nothing is shown.
class RegisterTransferTest : public testing::Test {
protected:
    RegisterTransferTest()
    {
        for (std::int32_t id = 0; id < 4; ++id) {
            registers_.push_back(std::make_shared<RegisterObject>());
            registers_.back()->Init(1, id, 8, 8, "R" + std::to_string(id), "");
        }
        device_.onTransfer = [this](const FakeDevice::Transfer& transfer) {
            ++(device_.mute.contains({1, transfer.parameterId}) ? counts_.failures : counts_.successes);
        };
    }

    void Expect(const TransferResult& result, int done, int failed)
    {
        EXPECT_EQ(result.done, done);
        EXPECT_EQ(result.failed, failed);
        EXPECT_EQ(result.Complete(), failed == 0);
    }

    std::string Marks() const
    {
        std::string marks;
        for (const auto& object : registers_)
            marks += object->IsDirty() ? '*' : '-';
        return marks;
    }

    FakeDevice device_;
    TransferCounts counts_{3, 0}; // of earlier runs
    FakeErrorLog errors_;
    std::vector<std::shared_ptr<RegisterObject>> registers_;
    RegisterTransfer transfer_{device_, counts_, errors_};
};

}

TEST_F(RegisterTransferTest, TakesFailuresFromTheCountsOfTheLink)
{
    registers_[1]->value(5);
    registers_[3]->value(6);
    device_.mute = {{1, 1}, {1, 2}};
    Expect(transfer_.Read(registers_), 2, 2);
    EXPECT_EQ(Marks(), "-*--");
    Expect(transfer_.Write(registers_), 2, 2);
    EXPECT_EQ(Marks(), "-**-");
    device_.mute.clear();
    Expect(transfer_.Write(registers_), 4, 0);
    EXPECT_EQ(Marks(), "----");
    EXPECT_EQ(counts_.successes, 8);
}

TEST_F(RegisterTransferTest, ARegisterFailsWithWhatDependsOnIt)
{
    registers_[0]->AddDependency(registers_[1]);
    registers_[1]->AddDependency(registers_[2]);
    registers_[2]->AddDependency(registers_[0]); // a circle
    registers_[1]->value(5);
    device_.mute = {{1, 2}};
    Expect(transfer_.Read({registers_[0]}), 0, 1);
    EXPECT_EQ(Marks(), "-*--");
    Expect(transfer_.Write({registers_[0]}), 0, 1);
    EXPECT_TRUE(registers_[0]->IsDirty());
    EXPECT_TRUE(registers_[1]->IsDirty()); // its value may not have arrived
    registers_[0]->ClearDependencies();    // or the circle keeps itself alive
}

}

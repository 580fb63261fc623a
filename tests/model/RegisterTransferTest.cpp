#include "model/RegisterObject.h"
#include "support/ExpectError.h"
#include "support/FakeDevice.h"

#include <memory>
#include <vector>

namespace tarvex {
namespace {

constexpr std::int32_t kBase = 0x451;
using Kind = FakeDevice::Kind;
using Ids = std::vector<std::int32_t>;

/// Registers on one processor; their parameter ids are their numbers.
class RegisterTransfer : public testing::Test {
protected:
    ~RegisterTransfer() override
    {
        for (const auto& made : registers)
            made->ClearDependencies();
    }

    RegisterObject& Make(std::int16_t bits = 8)
    {
        registers.push_back(std::make_shared<RegisterObject>());
        const auto id = static_cast<std::int16_t>(registers.size() - 1);
        registers.back()->Init(kBase, id, id, bits, "R", "");
        return *registers.back();
    }

    void Depend(std::size_t from, const std::vector<std::size_t>& others)
    {
        for (const std::size_t other : others)
            registers[from]->AddDependency(registers[other]);
    }

    FakeDevice device;
    std::vector<std::shared_ptr<RegisterObject>> registers;
};

TEST_F(RegisterTransfer, TakesWhatIsDeliveredLeastSignificantByteFirst)
{
    RegisterObject& wide = Make(16);
    wide.value(0x5678);
    device.memory[{kBase, 0}] = {0x34, 0x12};
    const std::pair<std::optional<std::size_t>, int> deliveries[] = {
        {0, 0x5678}, {1, 0x5634}, {{}, 0x1234}, {8, 0x1234}};
    for (const auto& [count, value] : deliveries) {
        device.deliver = count;
        EXPECT_EQ(wide.ReadValue(device, kNoAspi), value);
        EXPECT_FALSE(wide.IsDirty());
    }
    wide.value(0xABCD);
    wide.WriteValue(device, 77);
    EXPECT_EQ(device.transfers.back(), (FakeDevice::Transfer{Kind::Write, kBase, 0, {0xCD, 0xAB}, 77}));
}

TEST_F(RegisterTransfer, ErrorTakesTheMarkOnReadAndLeavesItOnWrite)
{
    for (int i = 0; i < 4; ++i)
        Make().value(9);
    Depend(0, {1, 2, 3});
    device.raiseAt.emplace(FakeDevice::Place{kBase, 2}, Error(305, "Link::WriteTo", "No"));
    ExpectError([&] { registers[0]->WriteValue(device, kNoAspi); }, 305, "Link::WriteTo", "No");
    EXPECT_EQ(device.Parameters(Kind::Write), (Ids{0, 1}));
    EXPECT_TRUE(registers[0]->IsDirty()); // until the dependencies are written too
    EXPECT_FALSE(registers[1]->IsDirty());
    EXPECT_TRUE(registers[2]->IsDirty());
    ExpectError([&] { registers[2]->ReadValue(device, kNoAspi); }, 305);
    EXPECT_FALSE(registers[2]->IsDirty());
    EXPECT_EQ(registers[2]->value(), 9);
}

TEST_F(RegisterTransfer, CirclesEndAndWorkAgainAfterAnError)
{
    for (int i = 0; i < 3; ++i)
        Make();
    Depend(0, {0, 1});
    Depend(1, {2, 0});
    Depend(2, {1});
    device.raiseAt.emplace(FakeDevice::Place{kBase, 2}, Error(303, "Link::ReadFrom", "No"));
    ExpectError([&] { registers[0]->ReadValue(device, kNoAspi); }, 303);
    device.raiseAt.clear();
    device.transfers.clear();
    registers[0]->ReadValue(device, 77);
    registers[2]->ReadValue(device, 77);
    EXPECT_EQ(device.Parameters(Kind::Read), (Ids{0, 1, 2, 2, 1, 0}));
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(device.transfers[i].aspi, i % 3 == 0 ? 77 : kNoAspi); // only of the register that was asked for
}

TEST_F(RegisterTransfer, ChainsMayBeAsLongAsADevice)
{
    constexpr std::size_t kLength = 300'000; // far more than a stack could hold
    registers.push_back(std::make_shared<RegisterObject>());
    for (std::size_t i = 1; i < kLength; ++i) {
        registers.push_back(std::make_shared<RegisterObject>());
        registers[i - 1]->AddDependency(registers[i]);
    }
    registers[0]->ReadValue(device, kNoAspi);
    EXPECT_EQ(device.transfers.size(), kLength);
}

}
}

#include "model/RegisterObject.h"
#include "support/ExpectError.h"
#include "support/FakeDevice.h"

namespace tarvex {
namespace {

RegisterObject Make(std::int16_t bits = 8)
{
    RegisterObject made;
    made.Init(0x451, 0x12, 7, bits, "Gain", "The gain");
    return made;
}

TEST(RegisterObject, ValueKeepsToItsRangeAndMarksOnlyAChange)
{
    for (const std::int16_t bits : {std::int16_t{8}, std::int16_t{16}, std::int16_t{24}}) {
        RegisterObject made = Make(bits);
        const std::int32_t highest = (1 << bits) - 1;
        made.value(0);
        for (const std::int32_t bad : {highest + 1, -1})
            ExpectError([&] { made.value(bad); }, 10, "RegisterObject::LetValue",
                        "Value " + std::to_string(bad) + " out of range for register with " + std::to_string(bits) +
                            " bits");
        EXPECT_FALSE(made.IsDirty());
        made.value(highest);
        EXPECT_TRUE(made.IsDirty());
        made.SetBit(0, false);
        EXPECT_EQ(made.value(), highest - 1);
    }
}

TEST(RegisterObject, FlagsAndDescriptionsOfBitsStayApart)
{
    RegisterObject made = Make();
    made.SetBitFlags(3, 2);
    made.ChangeBitFlags(3, 4, 2);
    made.ChangeBitFlags(3, 128, 128); // set before cleared
    EXPECT_EQ(made.GetBitFlags(3), 4);
    EXPECT_EQ(made.GetBitFlags(2), 0);
    made.SetBitDescription(7, "Last");
    made.SetBitDescription(0, "A longer text for the first bit");
    made.SetBitDescription(4, std::string("cut\0off", 7));
    EXPECT_EQ(made.GetBitDescription(0), "A longer text for the first bit");
    EXPECT_EQ(made.GetBitDescription(3) + made.GetBitDescription(4) + made.GetBitDescription(7), "cutLast");
}

TEST(RegisterObject, IndexesOutsideTheRegisterAreRefused)
{
    RegisterObject made = Make();
    for (const std::int16_t bit : {std::int16_t{8}, std::int16_t{-1}}) {
        const std::string flag = "Flag index, " + std::to_string(bit) + ", out of range";
        const std::string text = "Bit index, " + std::to_string(bit) + ", out of range";
        ExpectError([&] { made.SetBit(bit, true); }, 10, "RegisterObject::SetBit", flag);
        ExpectError([&] { made.GetBit(bit); }, 10, "RegisterObject::GetBit", flag);
        ExpectError([&] { made.GetBitFlags(bit); }, 10, "RegisterObject::GetBitFlag", flag);
        ExpectError([&] { made.SetBitDescription(bit, "x"); }, 10, "RegisterObject::SetBitDescription", text);
        ExpectError([&] { made.GetBitDescription(bit); }, 10, "RegisterObject::GetBitDescription", text);
        ExpectError([&] { made.SetBitFlags(bit, 1); }, kErrSubscript);
    }
    ExpectError([&] { made.ChangeBitFlags(8, 1, 0); }, 10, "RegisterObject::SetFlags", "Flag index, 8, out of range");
    ExpectError([&] { made.ChangeBitFlags(-1, 1, 0); }, kErrSubscript);
}

constexpr std::int32_t kBase = 0x451;
using Kind = FakeDevice::Kind;
using Ids = std::vector<std::int32_t>;

using Registers = std::vector<std::shared_ptr<RegisterObject>>;

/// Registers on one processor; their parameter ids are their numbers.
Registers MakeRegisters(std::int16_t count, std::int16_t bits)
{
    Registers registers;
    for (std::int16_t id = 0; id < count; ++id) {
        registers.push_back(std::make_shared<RegisterObject>());
        registers.back()->Init(kBase, id, id, bits, "R", "");
    }
    return registers;
}

TEST(RegisterTransfer, TakesWhatIsDeliveredLeastSignificantByteFirst)
{
    FakeDevice device;
    const Registers registers = MakeRegisters(1, 16);
    RegisterObject& wide = *registers[0];
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

TEST(RegisterTransfer, CirclesEndAndWorkAgainAfterAnError)
{
    FakeDevice device;
    const Registers registers = MakeRegisters(3, 8);
    for (const auto& [from, other] : {std::pair(0U, 0U), {0, 1}, {1, 2}, {1, 0}, {2, 1}})
        registers[from]->AddDependency(registers[other]);
    device.raiseAt.emplace(FakeDevice::Place{kBase, 2}, Error(303, "Link::ReadFrom", "No"));
    ExpectError([&] { registers[0]->ReadValue(device, kNoAspi); }, 303);
    device.raiseAt.clear();
    device.transfers.clear();
    registers[0]->ReadValue(device, 77);
    registers[2]->ReadValue(device, 77);
    EXPECT_EQ(device.Parameters(Kind::Read), (Ids{0, 1, 2, 2, 1, 0}));
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(device.transfers[i].aspi, i % 3 == 0 ? 77 : kNoAspi); // only of the register that was asked for
    for (const auto& each : registers)
        each->ClearDependencies(); // or the circles keep themselves alive
}

TEST(RegisterTransfer, ChainsMayBeAsLongAsADevice)
{
    constexpr std::size_t kLength = 300'000; // far more than a stack could hold
    FakeDevice device;
    Registers registers = MakeRegisters(1, 8);
    for (std::size_t i = 1; i < kLength; ++i) {
        registers.push_back(std::make_shared<RegisterObject>());
        registers[i - 1]->AddDependency(registers[i]);
    }
    registers[0]->ReadValue(device, kNoAspi);
    EXPECT_EQ(device.transfers.size(), kLength);
}

}
}

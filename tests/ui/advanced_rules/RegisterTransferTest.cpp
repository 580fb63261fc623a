#include "ui/advanced/RegisterTransfer.h"

#include "model/RegisterObject.h"
#include "support/FakeDevice.h"
#include "support/FakeErrorLog.h"

#include <gtest/gtest.h>

namespace tarvex {

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
        EXPECT_EQ(result.done, done);
        EXPECT_EQ(result.failed, failed);
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

#include "comm/CalculateASPI.h"

#include "base/Numbers.h"
#include "comm/api/IDevice.h"
#include "model/RegisterObject.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvex {

namespace {

constexpr int kProcessorsPerConnector = 8;

struct ProcessorOfRegister {
    std::string_view name;
    int processor;
};

/// Which of its connector's processors serves a register of a twisted-pair board.
constexpr std::array<ProcessorOfRegister, 5> kTwistedPairRegisters{
    {{"Red_Skew", 0}, {"Green_Skew", 1}, {"Blue_Skew", 2}, {"Color_Peak", 0}, {"Color_Gain", 0}}};

}

std::int16_t CalculateASPI(std::int16_t connector, const RegisterObject* target, std::int32_t enclosureType)
{
    if (connector < 1 || !target)
        return kNoAspi;
    if (enclosureType != kTwistedPairEnclosure && enclosureType != kMatrixEnclosure)
        return connector;
    int processor = 0;
    if (enclosureType == kTwistedPairEnclosure) {
        const auto* const found =
            std::find_if(kTwistedPairRegisters.begin(), kTwistedPairRegisters.end(),
                         [target](const ProcessorOfRegister& each) { return each.name == target->Name(); });
        if (found == kTwistedPairRegisters.end())
            return kNoAspi;
        processor = found->processor;
    }
    return ToInt16((connector - 1) * kProcessorsPerConnector + processor, "CalculateASPI");
}

}

#include "ui/wizards/frame/BitsetElements.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "model/RegisterObject.h"
#include "model/TarvexProperty.h"
#include "ui/wizards/frame/IWizardHost.h"
#include "ui/wizards/frame/RegisterWrite.h"

#include <algorithm>
#include <vector>

namespace tarvex {

namespace {

constexpr int kByteBits = 8;
constexpr std::int32_t kNanosecondsPerStep = 2;
constexpr std::int64_t kMostBits = 31; ///< of a value that fits 32 bits signed
constexpr std::size_t kMostFields = 7; ///< more bytes would not even be added up in 64 bits

/// The registers that hold an element, highest byte first.
std::vector<std::shared_ptr<RegisterObject>> RegistersOf(IConfigController& controller, const std::string& element)
{
    std::vector<std::string> names;
    controller.GetPropertyByName(element)->GetConstituents(names);
    if (names.size() > kMostFields)
        RaiseRuntime(kErrOverflow, "BitsetElements::RegistersOf");
    std::vector<std::shared_ptr<RegisterObject>> registers;
    registers.reserve(names.size());
    for (const std::string& name : names)
        registers.push_back(controller.GetI2CRegisterByName(name));
    std::reverse(registers.begin(), registers.end());
    return registers;
}

}

ElementBounds BitsetElements::Bounds(const std::string& element) const
{
    const auto property = host_->Controller().GetPropertyByName(element);
    std::int64_t bits = 0;
    for (std::int16_t i = 0; i < property->BitsetCount(); ++i)
        bits += property->GetBitset(i)->Count();
    if (bits > kMostBits)
        RaiseRuntime(kErrOverflow, "BitsetElements::Bounds");
    return {static_cast<std::int32_t>((std::int64_t{1} << bits) - 1), 0};
}

std::int32_t BitsetElements::Read(const std::string& element) const
{
    std::int64_t value = 0;
    for (const auto& each : RegistersOf(host_->Controller(), element))
        value = (value << kByteBits) + each->ReadValue(host_->Device(), aspiOf_(*each));
    return ToInt32(value, "BitsetElements::Read");
}

void BitsetElements::Write(const std::string& element, std::int32_t value) const
{
    const auto registers = RegistersOf(host_->Controller(), element);
    auto shift = static_cast<int>(registers.size()) * kByteBits;
    std::int64_t rest = value;
    for (const auto& each : registers) {
        shift -= kByteBits;
        const std::int64_t part = rest >> shift;
        rest -= part << shift;
        WriteRegister(*host_, *each, static_cast<std::int32_t>(part), aspiOf_(*each));
    }
}

bool BitsetElements::IsHeldBy(const std::string& element, const std::string& registerName) const
{
    IConfigController& controller = host_->Controller();
    for (std::int16_t i = 0; i < controller.GetPropertyCount(); ++i) {
        const auto property = controller.GetProperty(i);
        if (property->Name() != element)
            continue;
        for (std::int16_t field = 0; field < property->BitsetCount(); ++field)
            if (property->GetBitset(field)->ParentRegister() == registerName)
                return true;
    }
    return false;
}

std::string BitsetElements::ValueText(const std::string& element, std::int32_t value)
{
    if (ContainsIgnoringCase(element, "skew"))
        return std::to_string(value * kNanosecondsPerStep) + " ns";
    return std::to_string(value);
}

}

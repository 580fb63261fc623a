#include "model/TarvexProperty.h"

#include "base/Error.h"
#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace tarvex {

namespace {

constexpr std::array<std::string_view, 4> kWidgetTypes = {"None", "Boolean", "Range", "ColorText"};

}

void TarvexProperty::Init(std::string name, const std::vector<std::string>& bitsetNames,
                          const std::vector<std::shared_ptr<RegisterObject>>& registers,
                          const std::vector<std::string>& bitStrings)
{
    const std::size_t count = bitsetNames.size();
    if (registers.size() != count || bitStrings.size() != count)
        Raise(ObjectError(12), "TarvexProperty::Init", "Container counts did not match");
    name_ = std::move(name);
    if (count == 0)
        RaiseRuntime(kErrSubscript, "TarvexProperty::Init");
    ToInt16(static_cast<std::int64_t>(count), "TarvexProperty::Init");
    std::vector<std::shared_ptr<Bitset>> bitsets;
    bitsets.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        bitsets.push_back(std::make_shared<Bitset>());
        bitsets.back()->Init(bitsetNames[i], registers[i], bitStrings[i]);
    }
    bitsets_ = std::move(bitsets);
}

void TarvexProperty::WidgetType(std::string text)
{
    if (std::find(kWidgetTypes.begin(), kWidgetTypes.end(), text) == kWidgetTypes.end())
        Raise(502, "TarvexProperty::WidgetType", "Invalide string of " + text + " to set WidgetType");
    widgetType_ = std::move(text);
}

std::shared_ptr<Bitset> TarvexProperty::GetBitset(std::int16_t index) const
{
    if (index < 0 || index >= BitsetCount())
        Raise(501, "class TarvexProperty", "Index was out of range.");
    return bitsets_[static_cast<std::size_t>(index)];
}

std::shared_ptr<Bitset> TarvexProperty::GetBitsetByName(std::string_view name) const
{
    const auto found =
        std::find_if(bitsets_.begin(), bitsets_.end(), [name](const auto& bitset) { return bitset->Name() == name; });
    return found == bitsets_.end() ? nullptr : *found;
}

std::int16_t TarvexProperty::GetConstituents(std::vector<std::string>& registerNames) const
{
    if (bitsets_.empty())
        RaiseRuntime(kErrSubscript, "TarvexProperty::GetConstituents");
    registerNames.clear();
    for (const auto& bitset : bitsets_)
        registerNames.push_back(bitset->ParentRegister());
    return BitsetCount();
}

void TarvexProperty::ReadValue(IDevice& device)
{
    for (const auto& bitset : bitsets_)
        bitset->ReadBitsetValue(device);
}

void TarvexProperty::WriteValue(IDevice& device)
{
    for (const auto& bitset : bitsets_)
        bitset->WriteBitsetValue(device);
}

}

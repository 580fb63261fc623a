#include "model/Bitset.h"

#include "base/Numbers.h"
#include "model/BitConversions.h"
#include "model/RegisterObject.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tarvex {

void Bitset::Init(std::string name, std::shared_ptr<RegisterObject> parent, std::string_view bitString)
{
    if (!parent)
        RaiseRuntime(kErrInvalidCall, "Bitset::Init");
    Bits named;
    ParseBitString(bitString, named);
    const std::size_t end = std::min(named.size(), static_cast<std::size_t>(parent->MaxBits()));
    std::vector<std::uint8_t> positions;
    for (std::size_t position = 0; position < end; ++position)
        if (named[position])
            positions.push_back(static_cast<std::uint8_t>(position));
    if (positions.empty())
        RaiseRuntime(kErrSubscript, "Bitset::Init");
    positions.shrink_to_fit();
    positions_ = std::move(positions);
    name_ = std::move(name);
    parent_ = std::move(parent);
}

const std::string& Bitset::ParentRegister() const { return Parent("Bitset::ParentRegister").Name(); }

bool Bitset::GetBitValue(std::int16_t index) const
{
    const std::uint8_t position = CheckedAt(positions_, index, "Bitset::GetBitValue");
    return parent_->GetBit(position);
}

std::int16_t Bitset::GetBitFlags(std::int16_t index) const
{
    const std::uint8_t position = CheckedAt(positions_, index, "Bitset::GetBitFlags");
    return parent_->GetBitFlags(position);
}

std::int16_t Bitset::GetBitParentIndex(std::int16_t index) const
{
    return CheckedAt(positions_, index, "Bitset::GetBitParentIndex");
}

std::int16_t Bitset::GetValue() const
{
    std::int32_t mask = 0;
    for (const std::uint8_t position : positions_)
        mask |= 1 << position;
    return ToInt16(Parent("Bitset::GetValue").value() & mask, "Bitset::GetValue");
}

std::int32_t Bitset::ReadBitsetValue(IDevice& device)
{
    return Parent("Bitset::ReadBitsetValue").ReadValue(device, kNoAspi);
}

std::int32_t Bitset::WriteBitsetValue(IDevice& device)
{
    RegisterObject& parent = Parent("Bitset::WriteBitsetValue");
    parent.WriteValue(device, kNoAspi);
    return parent.value();
}

RegisterObject& Bitset::Parent(const char* source) const
{
    if (!parent_)
        RaiseRuntime(kErrSubscript, source);
    return *parent_;
}

}

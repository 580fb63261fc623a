#include "ui/advanced/ItemObject.h"

#include "base/Error.h"

#include <limits>

namespace tarvex {

void ItemObject::Init(std::int16_t index, std::string name, const std::string& group, std::int32_t value,
                      std::int32_t maximum, std::int32_t minimum, std::string_view rowType)
{
    index_ = index;
    name_ = std::move(name);
    value_ = value;
    maximum_ = maximum;
    minimum_ = minimum;
    rowType_ = rowType;
    texts_ = {};
    texts_.Set(kGroup, group);
    restrictions_.fill(0);
    marked_ = false;
}

void ItemObject::Update(std::string name, const std::string& group, std::int32_t value)
{
    name_ = std::move(name);
    texts_.Set(kGroup, group);
    value_ = value;
}

void ItemObject::value(std::int32_t newValue)
{
    if (newValue >= minimum_ && newValue <= maximum_)
        value_ = newValue;
    events_->ValueChanged.Raise(index_, value_);
}

std::int16_t ItemObject::BitCount() const
{
    std::int16_t count = 0;
    while (count < kMaxBits && (std::int64_t{1} << (count + 1)) - 1 <= maximum_)
        ++count;
    return count;
}

void ItemObject::SetTooWide()
{
    maximum_ = std::numeric_limits<std::int32_t>::max();
    for (std::size_t bit = 0; bit < kMaxBits; ++bit)
        texts_.Set(kFirstPrompt + bit, {});
}

void ItemObject::NameToolTip(const std::string& text)
{
    texts_.Set(kNameTip, text);
    events_->NameTipChanged.Raise(index_, text);
}

void ItemObject::SetRestrictedBit(std::int16_t bit, std::int16_t flags)
{
    if (bit < 0 || bit >= BitCount())
        Raise(ObjectError(1), "ItemObject::SetRestrictedBit",
              "Bit index of " + std::to_string(bit) + " out of range: 0 to " + std::to_string(BitCount()));
    restrictions_[static_cast<std::size_t>(bit)] = static_cast<std::uint8_t>(flags);
    events_->BitRestrictionChanged.Raise(bit, flags, index_);
}

std::int16_t ItemObject::GetRestrictedBit(std::int16_t bit) const
{
    CheckBit(bit, "ItemObject::GetRestrictedBit");
    return restrictions_[static_cast<std::size_t>(bit)];
}

void ItemObject::SetBitPrompt(std::int16_t bit, const std::string& text)
{
    CheckBit(bit, "ItemObject::SetBitPrompt");
    texts_.Set(kFirstPrompt + static_cast<std::size_t>(bit), text);
    events_->BitPromptChanged.Raise(bit, text, index_);
}

std::string ItemObject::GetBitPrompt(std::int16_t bit) const
{
    CheckBit(bit, "ItemObject::GetBitPrompt");
    return std::string(texts_.Get(kFirstPrompt + static_cast<std::size_t>(bit)));
}

void ItemObject::CheckBit(std::int16_t bit, const char* source) const
{
    if (bit < 0 || bit >= BitCount())
        RaiseRuntime(kErrSubscript, source);
}

}

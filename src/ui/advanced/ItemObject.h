#pragma once

#include "base/Event.h"
#include "model/PackedTexts.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvex {

class ItemObject;

inline constexpr std::string_view kRegisterRowType = "UI_LineItem_UI_Type_Register";

/// What the items of one list tell; one set serves all of them, since every event names the item by its index.
struct ItemEvents {
    /// Index, value.
    Event<ItemObject, std::int16_t, std::int32_t> ValueChanged;
    /// Bit, flag word, index.
    Event<ItemObject, std::int16_t, std::int16_t, std::int16_t> BitRestrictionChanged;
    /// Bit, text, index.
    Event<ItemObject, std::int16_t, const std::string&, std::int16_t> BitPromptChanged;
    /// Index, text.
    Event<ItemObject, std::int16_t, const std::string&> NameTipChanged;
};

/// The model of one row: what the register display knows of one register, in view or not. The display owns it.
class ItemObject {
public:
    static constexpr std::int16_t kMaxBits = 16;

    /// An empty item that raises through these events, which outlive it.
    explicit ItemObject(ItemEvents& events) : events_(&events) {}

    /// The row type is a text that outlives the item. Tool tips, restrictions and prompts are cleared.
    void Init(std::int16_t index, std::string name, const std::string& group, std::int32_t value, std::int32_t maximum,
              std::int32_t minimum, std::string_view rowType);

    /// Takes another name, group and value and keeps the rest; raises nothing.
    void Update(std::string name, const std::string& group, std::int32_t value);

    std::int16_t index() const { return index_; }
    const std::string& Name() const { return name_; }
    std::string Group() const { return std::string(texts_.Get(kGroup)); }
    std::int32_t MaxValue() const { return maximum_; }
    std::int32_t MinValue() const { return minimum_; }
    std::string_view UI_Type() const { return rowType_; }
    std::int32_t value() const { return value_; }
    /// A value outside the limits is ignored; ValueChanged is raised with the stored value in any case.
    void value(std::int32_t newValue);
    /// How many bits the maximum has, at most 16.
    std::int16_t BitCount() const;
    /// True when the value does not fit the eight bits of a row.
    bool IsTooWide() const { return maximum_ > kMaxRowValue; }
    /// Lets the item hold a value of any width.
    void SetTooWide();

    /// Whether the value was changed and not loaded into the board.
    bool IsMarked() const { return marked_; }
    void IsMarked(bool marked) { marked_ = marked; }

    std::string NameToolTip() const { return std::string(texts_.Get(kNameTip)); }
    void NameToolTip(const std::string& text);
    std::string GroupToolTip() const { return std::string(texts_.Get(kGroupTip)); }
    void GroupToolTip(const std::string& text) { texts_.Set(kGroupTip, text); }

    /// Raises 0x80040001 for a bit outside the item's bits.
    void SetRestrictedBit(std::int16_t bit, std::int16_t flags);
    /// Raises 9 for a bit outside the item's bits, as do the next two.
    std::int16_t GetRestrictedBit(std::int16_t bit) const;
    void SetBitPrompt(std::int16_t bit, const std::string& text);
    std::string GetBitPrompt(std::int16_t bit) const;

private:
    static constexpr std::int32_t kMaxRowValue = 255;
    static constexpr std::size_t kNameTip = 0;
    static constexpr std::size_t kGroupTip = 1;
    static constexpr std::size_t kGroup = 2;
    static constexpr std::size_t kFirstPrompt = 3;

    void CheckBit(std::int16_t bit, const char* source) const;

    ItemEvents* events_;
    std::string name_;
    std::string_view rowType_;
    PackedTexts texts_;                                 ///< tool tips, group, and the prompt of each bit
    std::array<std::uint8_t, kMaxBits> restrictions_{}; ///< every access flag fits eight bits
    std::int32_t value_ = 0;
    std::int32_t maximum_ = kMaxRowValue;
    std::int32_t minimum_ = 0;
    std::int16_t index_ = 0;
    bool marked_ = false;
};

}

#include "ui/advanced/HexFieldRules.h"

#include "base/Error.h"
#include "base/Numbers.h"

#include <limits>

namespace tarvex {

namespace {

std::string Joined(std::string_view left, std::string_view right)
{
    std::string text(left);
    return text.append(right);
}

bool FitsSixteenBits(std::int32_t value)
{
    return value >= std::numeric_limits<std::int16_t>::min() && value <= std::numeric_limits<std::uint16_t>::max();
}

}

std::string TextAfterDelete(const HexFieldText& text)
{
    const bool eatsRight = text.selected.empty() && !text.right.empty();
    return Joined(text.left, text.right.substr(eatsRight ? 1 : 0));
}

std::string TextAfterBackspace(const HexFieldText& text)
{
    const bool eatsLeft = text.selected.empty() && !text.left.empty();
    return Joined(text.left.substr(0, text.left.size() - (eatsLeft ? 1 : 0)), text.right);
}

std::string TextAfterCut(const HexFieldText& text) { return Joined(text.left, text.right); }

std::string TextAfterInsert(const HexFieldText& text, std::string_view inserted)
{
    return Joined(Joined(text.left, inserted), text.right);
}

bool IsAcceptableHex(std::string_view text, std::int32_t minimum, std::int32_t maximum)
{
    if (text.empty())
        return true;
    if (text == "-")
        return minimum < 0;
    const auto value = TryParseHex(text);
    return value && *value >= minimum && *value <= maximum;
}

std::string_view WithoutHexPrefix(std::string_view text)
{
    return text.find("&H") == std::string_view::npos ? text : text.substr(2);
}

void CheckHexText(std::string_view text, std::int32_t minimum, std::int32_t maximum)
{
    static constexpr const char* kSource = "HexField.Text";
    const auto value = TryParseHex(text);
    if (!value)
        Raise(kErrNotHexadecimal, kSource, "Value " + std::string(text) + " is not a valid hex.");
    const auto narrow = static_cast<std::int16_t>(*value);
    if (!FitsSixteenBits(*value) || narrow < minimum || narrow > maximum)
        Raise(kErrOutsideLimits, kSource,
              "Value " + std::string(text) + " is not between " + std::to_string(minimum) + " and " +
                  std::to_string(maximum) + ".");
}

void CheckMinValue(std::int32_t value)
{
    if (value < 0)
        Raise(kErrOutsideLimits, "HexField.MinValue", "Value " + std::to_string(value) + " must be greater than zero.");
}

}

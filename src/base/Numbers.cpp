#include "base/Numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace tarvex {

namespace {

template <class Narrow> Narrow NarrowTo(std::int64_t value, std::string_view source)
{
    if (value < std::numeric_limits<Narrow>::min() || value > std::numeric_limits<Narrow>::max())
        RaiseRuntime(kErrOverflow, std::string(source));
    return static_cast<Narrow>(value);
}

template <class Number> std::optional<Number> ParseWhole(std::string_view text, int base)
{
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::int32_t OrTypeMismatch(std::optional<std::int32_t> value, std::string_view source)
{
    if (!value)
        RaiseRuntime(kErrTypeMismatch, std::string(source));
    return *value;
}

}

std::int16_t ToInt16(std::int64_t value, std::string_view source) { return NarrowTo<std::int16_t>(value, source); }

std::uint8_t ToByte(std::int64_t value, std::string_view source) { return NarrowTo<std::uint8_t>(value, source); }

std::int32_t ToInt32(std::int64_t value, std::string_view source) { return NarrowTo<std::int32_t>(value, source); }

std::int64_t RoundHalfToEven(double value)
{
    const double floor = std::floor(value);
    const double fraction = value - floor;
    const auto below = static_cast<std::int64_t>(floor);
    if (fraction == 0.5)
        return below % 2 == 0 ? below : below + 1;
    return fraction < 0.5 ? below : below + 1;
}

std::optional<std::int32_t> TryParseHex(std::string_view text)
{
    if (text.size() > 8 || text.starts_with('-'))
        return std::nullopt;
    const auto value = ParseWhole<std::uint32_t>(text, 16);
    return value ? std::optional(static_cast<std::int32_t>(*value)) : std::nullopt;
}

std::int32_t ParseHex(std::string_view text, std::string_view source)
{
    return OrTypeMismatch(TryParseHex(text), source);
}

std::optional<std::int32_t> TryParseDecimal(std::string_view text)
{
    const bool hasPlus = text.starts_with('+');
    if (hasPlus)
        text.remove_prefix(1);
    return hasPlus && text.starts_with('-') ? std::nullopt : ParseWhole<std::int32_t>(text, 10);
}

std::int32_t ParseDecimal(std::string_view text, std::string_view source)
{
    return OrTypeMismatch(TryParseDecimal(text), source);
}

std::string ToHex(std::int32_t value, int width)
{
    static constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    auto rest = static_cast<std::uint32_t>(value);
    while (rest != 0 || static_cast<int>(text.size()) < width) {
        text.insert(text.begin(), kDigits[rest % 16]);
        rest /= 16;
    }
    return text;
}

}

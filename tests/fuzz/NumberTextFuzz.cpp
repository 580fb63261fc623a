#include "Require.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "base/Version.h"

#include <string>
#include <string_view>

namespace tarvex {

namespace {

/// The value that a plain loop finds, or none.
std::optional<std::int32_t> SlowHex(std::string_view text)
{
    if (text.empty() || text.size() > 8)
        return std::nullopt;
    std::uint32_t value = 0;
    for (const char letter : ToLower(text)) {
        const std::size_t digit = std::string_view("0123456789abcdef").find(letter);
        if (digit == std::string_view::npos)
            return std::nullopt;
        value = value * 16 + static_cast<std::uint32_t>(digit);
    }
    return static_cast<std::int32_t>(value);
}

std::optional<std::int32_t> SlowDecimal(std::string_view text)
{
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    if (text.empty())
        return std::nullopt;
    std::int64_t value = 0;
    for (const char letter : text) {
        if (letter < '0' || letter > '9')
            return std::nullopt;
        value = value * 10 + (letter - '0');
        if (value > 0x80000000LL)
            return std::nullopt;
    }
    value = isNegative ? -value : value;
    return value > 0x7FFFFFFF ? std::nullopt : std::optional(static_cast<std::int32_t>(value));
}

template <class Parse> void CheckRaising(Parse parse, std::string_view text, std::optional<std::int32_t> expected)
{
    try {
        Require(expected == parse(text, "here"), "a number is parsed as itself");
    } catch (const Error& error) {
        Require(!expected && error.Number() == kErrTypeMismatch, "only what is no number is refused, with 13");
    }
}

void CheckNumbers(std::string_view text)
{
    const auto hex = SlowHex(text);
    Require(TryParseHex(text) == hex, "hexadecimal is read as a plain loop reads it");
    if (hex)
        Require(TryParseHex(ToHex(*hex)) == hex, "what is written in hexadecimal is read back");
    CheckRaising(ParseHex, text, hex);
    Require(TryParseDecimal(text) == SlowDecimal(text), "decimal is read as a plain loop reads it");
    CheckRaising(ParseDecimal, text, SlowDecimal(text));
}

/// `text` holds two versions with a slash between.
void CheckVersions(std::string_view text)
{
    const std::string_view left = text.substr(0, text.find('/'));
    const std::string_view right = text.substr(std::min(left.size() + 1, text.size()));
    const bool areVersions = IsVersionAtLeast(left, left) && IsVersionAtLeast(right, right);
    const bool isSomeOrder = IsVersionAtLeast(left, right) || IsVersionAtLeast(right, left);
    Require(areVersions == isSomeOrder, "two versions have an order, anything else has none");
    if (areVersions)
        Require(IsVersionAtLeast("32767.32767.32767", left) && IsVersionAtLeast(left, "-32768.-32768.-32768"),
                "a version lies between the lowest and the highest");
}

}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    tarvex::CheckNumbers(text);
    tarvex::CheckVersions(text);
    return 0;
}

#include "Fuzz.h"

#include "base/Numbers.h"
#include "base/Version.h"

namespace tarvex {

namespace {

void CheckNumbers(std::string_view text)
{
    const std::string copy(text);
    const bool isShort = !text.empty() && text.size() <= 8;
    const auto hex = TryParseHex(text);
    Require(hex.has_value() == (isShort && text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos),
            "hexadecimal is one to eight digits");
    if (hex) {
        Require(*hex == static_cast<std::int32_t>(std::stoll(copy, nullptr, 16)), "hexadecimal is read as it is");
        Require(TryParseHex(ToHex(*hex)) == hex, "what is written in hexadecimal is read back");
    }
    const auto decimal = TryParseDecimal(text);
    Require(decimal || !isShort || text.find_first_not_of("0123456789") != std::string_view::npos,
            "a few digits are a decimal number");
    Require(!decimal || *decimal == std::stoll(copy), "decimal is read as it is");
    Require(!decimal || text.find_first_not_of("+-0123456789") == std::string_view::npos, "it has digits only");
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

void Check(std::string_view text)
{
    CheckNumbers(text);
    CheckVersions(text);
}

}

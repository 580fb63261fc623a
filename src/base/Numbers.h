#pragma once

#include "base/Error.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

/// Narrows to the 16-bit size of the system's counts and indexes; raises 6 "Overflow" with `source` outside its range.
std::int16_t ToInt16(std::int64_t value, std::string_view source);

/// Narrows to an unsigned byte; raises 6 "Overflow" with `source` outside 0 to 255.
std::uint8_t ToByte(std::int64_t value, std::string_view source);

/// Narrows to 32-bit signed; raises 6 "Overflow" with `source` outside its range.
std::int32_t ToInt32(std::int64_t value, std::string_view source);

/// Rounds to the nearest integer, halves to the even one.
std::int64_t RoundHalfToEven(double value);

/// One to eight hexadecimal digits without prefix, read as a 32-bit two's-complement value; none for any other text.
std::optional<std::int32_t> TryParseHex(std::string_view text);

/// As TryParseHex; raises 13 "Type mismatch" with `source` for a text that is no such number.
std::int32_t ParseHex(std::string_view text, std::string_view source);

/// An optional sign and decimal digits within 32 bits; none for any other text.
std::optional<std::int32_t> TryParseDecimal(std::string_view text);

/// As TryParseDecimal; raises 13 "Type mismatch" with `source` for a text that is no such number.
std::int32_t ParseDecimal(std::string_view text, std::string_view source);

/// Upper-case hexadecimal of the value's 32 bits, padded with zeros to at least `width` digits.
std::string ToHex(std::int32_t value, int width = 1);
/// The same after "0x", as addresses stand in texts.
inline std::string HexText(std::int32_t value) { return "0x" + ToHex(value); }

/// The element at a checked position; raises 9 "Subscript out of range" with `source` outside the container.
template <class Container> decltype(auto) CheckedAt(Container& container, std::int64_t index, std::string_view source)
{
    if (index < 0 || static_cast<std::size_t>(index) >= container.size())
        RaiseRuntime(kErrSubscript, std::string(source));
    return container[static_cast<std::size_t>(index)];
}

}

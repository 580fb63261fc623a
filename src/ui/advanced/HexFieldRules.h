#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvex {

inline constexpr std::int32_t kErrNotHexadecimal = 800;
inline constexpr std::int32_t kErrOutsideLimits = 801;

/// The text of a field as an edit sees it: what stands left of the selection, the selection, what stands right of it.
/// Without a selection the caret stands between left and right.
struct HexFieldText {
    std::string_view left;
    std::string_view selected;
    std::string_view right;
};

// The text that an edit would leave, so that it can be judged before it happens.

std::string TextAfterDelete(const HexFieldText& text);
std::string TextAfterBackspace(const HexFieldText& text);
std::string TextAfterCut(const HexFieldText& text);
/// For a typed character and for a paste.
std::string TextAfterInsert(const HexFieldText& text, std::string_view inserted);

/// True for an empty text, for a number of one to eight hexadecimal digits within the limits, and for a lone minus when
/// the minimum is negative.
bool IsAcceptableHex(std::string_view text, std::int32_t minimum, std::int32_t maximum);

/// The text without its first two characters when it holds the prefix "&H", otherwise the whole text.
std::string_view WithoutHexPrefix(std::string_view text);

/// Raises 800 for a text that is no hexadecimal number and 801 for one whose 16-bit signed value is outside the limits.
void CheckHexText(std::string_view text, std::int32_t minimum, std::int32_t maximum);

/// Raises 801 for a negative minimum.
void CheckMinValue(std::int32_t value);

}

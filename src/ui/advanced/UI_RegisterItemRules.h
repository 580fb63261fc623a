#pragma once

#include "base/Types.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

/// How a bit cell looks and behaves by the access flags of its bit.
struct BitLook {
    /// 0xRRGGBB.
    std::uint32_t colour;
    bool locked;
    /// What the tool tip calls the access; empty for a bit without any flag.
    std::string_view accessName;
    bool operator==(const BitLook&) const = default;
};

BitLook LookOfBit(std::int16_t flags);

/// Black or white (0xRRGGBB), whichever stands out more from the background.
std::uint32_t TextColourOn(std::uint32_t background);

/// The prompt of a bit with the name of its access, so that nobody depends on the colour.
std::string BitTip(const std::string& prompt, std::string_view accessName);

/// The low eight bits of a hexadecimal text; none when it cannot be read.
std::optional<Bits> BitsOfHexText(std::string_view text);

/// The hexadecimal text of eight digits, bit 7 first.
std::string HexTextOfDigits(std::string_view digits);

}

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvex {

/// A value for the register of a name.
struct RegisterValue {
    const char* name;
    std::int32_t value;
};

/// Active pixels per line and active lines of an input mode.
struct Resolution {
    std::int16_t width = 0;
    std::int16_t height = 0;

    bool operator==(const Resolution&) const = default;
};

inline constexpr std::int16_t kUnknownRefresh = -1;

/// The modes that the menus offer.
inline constexpr std::array<const char*, 9> kResolutionItems{
    "640x480", "800x600", "1024x768", "1152x864", "1280x768", "1280x960", "1280x1024", "1600x1200", "1920x1080"};
inline constexpr std::array<const char*, 8> kRefreshItems{"56", "60", "65", "70", "72", "75", "80", "85"};

/// Splits a text such as "1024x768" at its first "x". Raises 13 where there is no number, 6 for one beyond 16 bits.
Resolution ParseResolution(const std::string& text);

std::string ResolutionText(Resolution resolution);

/// A non-negative value as upper and lower byte of two registers, in the order in which they are written; nothing for a
/// value of more than two bytes. Raises 10 for a negative one.
std::vector<RegisterValue> TwoByteWrites(std::int32_t value, const char* upper, const char* lower);

/// The PLL divider of a width, samples per line, as it stands in the upper twelve bits of its two registers.
std::int32_t PllDivider(std::int16_t width);

/// What a resolution writes, in order: PLL divider, active pixels, active lines. It ends before the first value that
/// does not fit its two registers.
struct ResolutionPlan {
    std::vector<RegisterValue> writes;
    bool complete = false;
};
ResolutionPlan PlanResolution(Resolution resolution);

/// VCO range (bits 7 and 6) and charge-pump current (bits 5 to 3) for a mode and its refresh rate in Hz. Raises 6 where
/// the current has no code, as for the pixel clock of an unknown size.
std::uint8_t VcoChargePumpByte(Resolution resolution, std::int16_t refresh);

}

#include "ui/wizards/vexlon/VexlonElements.h"

#include "base/Numbers.h"

#include <algorithm>
#include <array>

namespace tarvex {

namespace {

constexpr std::int32_t kUpperByte = 256;
constexpr std::string_view kPhase = "Phase Timing";

constexpr std::array<VexlonElement, 11> kElements{{
    {"Brightness", "brightness.jpg", Mapping::Brightness, "Red Offset", nullptr, 1, BoundsFrom::ReversedRegister, {}},
    {"Contrast", "Contrast.jpg", Mapping::Contrast, "Red Gain", nullptr, 1, BoundsFrom::ReversedRegister, {}},
    {"Red Gain", "red_gain.jpg", Mapping::Scaled, "Red Gain", nullptr, 1, BoundsFrom::ReversedRegister, {}},
    {"Green Gain", "green_gain.jpg", Mapping::Scaled, "Green Gain", nullptr, 1, BoundsFrom::ReversedRegister, {}},
    {"Blue Gain", "blue_gain.jpg", Mapping::Scaled, "Blue Gain", nullptr, 1, BoundsFrom::ReversedRegister, {}},
    {"Horizontal Position",
     "horizontal_shift.jpg",
     Mapping::Scaled,
     "DE_DLY",
     nullptr,
     1,
     BoundsFrom::ReversedRegister,
     {}},
    {"Vertical Position", "vertical_shift.jpg", Mapping::Scaled, "DE_TOP", nullptr, 1, BoundsFrom::Register, {}},
    {"Height", nullptr, Mapping::TwoBytes, "DE_LIN MSB", "DE_LIN LSB", 1, BoundsFrom::Table, {2047, 1}},
    {"Width", nullptr, Mapping::TwoBytes, "DE_CNT MSB", "DE_CNT LSB", 1, BoundsFrom::Table, {2047, 1}},
    {"Fine Tune", "fine_tune.jpg", Mapping::Scaled, "PLL Div LSB", nullptr, 16, BoundsFrom::Table, {15, 0}},
    {kPhase, "phase_timing.jpg", Mapping::Scaled, "Phase Adjust", nullptr, 8, BoundsFrom::Table, {31, 0}},
}};

/// The name in one word, but for one picture with a key of its own.
std::string ImageKeyOf(std::string_view element)
{
    std::string key(element == kPhase ? "CONFIG_ELEMENT_KEY_PHASE" : element);
    std::erase(key, ' ');
    return key;
}

}

const VexlonElement* FindVexlonElement(std::string_view name)
{
    const auto* found =
        std::find_if(kElements.begin(), kElements.end(), [=](const VexlonElement& each) { return each.name == name; });
    return found == kElements.end() ? nullptr : found;
}

std::vector<BuiltInElement> BuiltInVexlonElements()
{
    std::vector<BuiltInElement> shown;
    for (const VexlonElement& each : kElements)
        if (each.picture)
            shown.push_back({std::string(each.name), each.picture, ImageKeyOf(each.name)});
    return shown;
}

ElementBounds BoundsOf(const VexlonElement& element, std::int32_t minimum, std::int32_t maximum)
{
    switch (element.boundsFrom) {
    case BoundsFrom::ReversedRegister:
        return {minimum, maximum - 1};
    case BoundsFrom::Register:
        return {maximum - 1, minimum};
    default:
        return element.bounds;
    }
}

std::int32_t ValueFromRegisters(const VexlonElement& element, std::int32_t first, std::int32_t second)
{
    if (element.mapping == Mapping::TwoBytes)
        return first * kUpperByte + second;
    return static_cast<std::int32_t>(RoundHalfToEven(static_cast<double>(first) / element.unit));
}

std::vector<RegisterValue> WritesOf(const VexlonElement& element, std::int32_t value)
{
    if (element.mapping == Mapping::TwoBytes)
        return TwoByteWrites(value, element.first, element.second);
    return {{element.first, value * element.unit}};
}

std::string HelpPictureOf(std::string_view element, const std::string& device)
{
    if (element == "Fine Tune")
        return "noiseLines.jpg";
    if (element == kPhase)
        return "phase_help.jpg";
    if (device == "Vexlon")
        return "Vexlon.jpg";
    return device.find("Vexlon-Fx") == std::string::npos ? "" : "Fiber_Tx.jpg";
}

}

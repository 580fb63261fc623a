#include "ui/wizards/vexlon/VexlonTiming.h"

#include "base/Numbers.h"
#include "model/BitConversions.h"

#include <algorithm>
#include <limits>

namespace tarvex {

namespace {

// Samples of a whole line for each active one, and lines of a whole picture for each active one.
constexpr double kLineTotal = 1.3;
constexpr double kPictureTotal = 1.045;
constexpr std::int32_t kDividerUnit = 16; // its lowest bit is bit 4 of the lower register
constexpr int kRangeUnit = 64;
constexpr int kCurrentUnit = 8;

/// The line by which the charge-pump code follows the pixel clock within one range of the oscillator.
struct VcoRange {
    float below; ///< MHz
    int code;
    float base;
    float slope;
    float offset; ///< MHz
};

constexpr std::array<VcoRange, 4> kVcoRanges{{
    {45.0F, 0, 1.5F, 0.167F, 22.0F},
    {90.0F, 1, 2.5F, 0.0714F, 44.0F},
    {150.0F, 2, 2.5F, 0.023F, 70.0F},
    {std::numeric_limits<float>::infinity(), 3, 3.5F, 0.023F, 70.0F},
}};

float PixelClock(Resolution resolution, std::int16_t refresh)
{
    return static_cast<float>((resolution.height / 1000.0 * refresh * kPictureTotal) *
                              (resolution.width / 1000.0 * kLineTotal));
}

}

Resolution ParseResolution(const std::string& text)
{
    constexpr const char* kSource = "Vexlon_Wizard::ParseResolution";
    const std::size_t cross = text.find('x');
    if (cross == std::string::npos)
        RaiseRuntime(kErrTypeMismatch, kSource);
    const auto number = [&](const std::string& digits) { return ToInt16(ParseDecimal(digits, kSource), kSource); };
    return {number(text.substr(0, cross)), number(text.substr(cross + 1))};
}

std::string ResolutionText(Resolution resolution)
{
    return std::to_string(resolution.width) + "x" + std::to_string(resolution.height);
}

std::vector<RegisterValue> TwoByteWrites(std::int32_t value, const char* upper, const char* lower)
{
    Bytes bytes;
    if (LongToBytes(value, bytes) > 2)
        return {};
    return {{upper, bytes[1]}, {lower, bytes[0]}};
}

std::int32_t PllDivider(std::int16_t width)
{
    return static_cast<std::int32_t>(RoundHalfToEven(width * kLineTotal)) * kDividerUnit;
}

ResolutionPlan PlanResolution(Resolution resolution)
{
    ResolutionPlan plan;
    const auto add = [&plan](std::int32_t value, const char* upper, const char* lower) {
        const auto pair = TwoByteWrites(value, upper, lower);
        plan.writes.insert(plan.writes.end(), pair.begin(), pair.end());
        return !pair.empty();
    };
    plan.complete = add(PllDivider(resolution.width), "PLL Div MSB", "PLL Div LSB") &&
                    add(resolution.width, "DE_CNT MSB", "DE_CNT LSB") &&
                    add(resolution.height, "DE_LIN MSB", "DE_LIN LSB");
    return plan;
}

std::uint8_t VcoChargePumpByte(Resolution resolution, std::int16_t refresh)
{
    constexpr const char* kSource = "Vexlon_Wizard::VcoChargePumpByte";
    const float clock = PixelClock(resolution, refresh);
    const auto range =
        std::find_if(kVcoRanges.begin(), kVcoRanges.end(), [=](const VcoRange& each) { return clock < each.below; });
    const double current = (double{clock} - range->offset) * range->slope + range->base;
    const std::uint8_t code = ToByte(RoundHalfToEven(current), kSource);
    return static_cast<std::uint8_t>(range->code * kRangeUnit | ToByte(code * kCurrentUnit, kSource));
}

}

#include "ui/wizards/vexlon/VexlonColour.h"

#include "base/Numbers.h"

#include <algorithm>

namespace tarvex {

namespace {

// The highest value itself is kept out of use.
std::int32_t Highest(const ColourRegister& colour) { return colour.maximum - 1; }

std::int32_t Clamped(const ColourRegister& colour, std::int32_t value)
{
    if (value >= colour.maximum)
        return Highest(colour);
    return std::max(value, colour.minimum);
}

template <class Function> ColourValues ForEach(const ColourRegisters& colours, const Function& valueOf)
{
    return {valueOf(colours[0]), valueOf(colours[1]), valueOf(colours[2])};
}

ColourValues Moved(const ColourRegisters& colours, std::int32_t delta)
{
    return ForEach(colours, [=](const ColourRegister& each) { return Clamped(each, each.value + delta); });
}

bool AllEqual(const ColourRegisters& colours)
{
    return colours[0].value == colours[1].value && colours[1].value == colours[2].value;
}

bool IsOutside(const ColourRegister& colour, std::int32_t value)
{
    return value > colour.maximum || value < colour.minimum;
}

/// False as soon as one gain's difference is to be kept.
bool MayMove(const ColourRegisters& gains, std::int32_t delta, GainAnswers& answers,
             const std::function<GainAnswer(std::size_t)>& ask)
{
    const bool equal = AllEqual(gains);
    for (std::size_t i = 0; i < gains.size(); ++i) {
        if (equal || !IsOutside(gains[i], gains[i].value + delta)) {
            answers[i] = GainAnswer::NotAsked;
            continue;
        }
        if (answers[i] == GainAnswer::NotAsked)
            answers[i] = ask(i);
        if (answers[i] == GainAnswer::No)
            return false;
    }
    return true;
}

}

std::int32_t BrightnessOf(const ColourRegisters& offsets)
{
    return (offsets[0].value + offsets[1].value + offsets[2].value) / 3;
}

std::int32_t ContrastOf(const ColourRegisters& gains)
{
    float distance = 0;
    for (const ColourRegister& gain : gains)
        distance += static_cast<float>(gain.maximum - gain.value);
    const float contrast = 255.0F - distance / 3.0F;
    return static_cast<std::int32_t>(RoundHalfToEven(contrast));
}

ColourValues PlanBrightness(std::int32_t target, const ColourRegisters& offsets)
{
    return Moved(offsets, target - BrightnessOf(offsets));
}

std::optional<ColourValues> PlanContrast(std::int32_t target, const ColourRegisters& gains, GainAnswers& answers,
                                         const std::function<GainAnswer(std::size_t)>& ask)
{
    const std::int32_t delta = target - ContrastOf(gains);
    if (!MayMove(gains, delta, answers, ask))
        return std::nullopt;
    if (target == Highest(gains[0]))
        return ForEach(gains, Highest);
    if (target == gains[0].minimum)
        return ForEach(gains, [](const ColourRegister& each) { return each.minimum; });
    return Moved(gains, delta);
}

}

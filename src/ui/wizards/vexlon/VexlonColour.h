#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace tarvex {

/// The register of one colour, an offset or a gain.
struct ColourRegister {
    std::int32_t value;
    std::int32_t minimum;
    std::int32_t maximum;
};

/// Red, green and blue, in this order everywhere.
using ColourRegisters = std::array<ColourRegister, 3>;
using ColourValues = std::array<std::int32_t, 3>;

/// What the user said to losing the difference of one gain to the others; he is asked once, until that gain is changed
/// without a loss.
enum class GainAnswer : std::int16_t { NotAsked = 0, Yes = 6, No = 7 };
using GainAnswers = std::array<GainAnswer, 3>;

/// The mean of three offsets, truncated.
std::int32_t BrightnessOf(const ColourRegisters& offsets);

/// 255 less the mean distance of three gains to their highest value, rounded.
std::int32_t ContrastOf(const ColourRegisters& gains);

/// The offsets that give a brightness: all are moved by the same amount, as far as their limits let them.
ColourValues PlanBrightness(std::int32_t target, const ColourRegisters& offsets);

/// The gains that give a contrast, or none when the user keeps the difference that one of them would lose. `ask` puts
/// the question for the gain at a position; `answers` are those of the board and change with it.
std::optional<ColourValues> PlanContrast(std::int32_t target, const ColourRegisters& gains, GainAnswers& answers,
                                         const std::function<GainAnswer(std::size_t)>& ask);

}

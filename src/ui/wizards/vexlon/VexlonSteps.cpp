#include "ui/wizards/vexlon/VexlonSteps.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr std::int32_t kWidestPulse = 255;
constexpr std::int32_t kPulseStep = 10;

}

std::optional<std::int32_t> NextPulseWidth(std::int32_t width, Step step)
{
    const std::int32_t end = step == Step::Up ? kWidestPulse : 0;
    if (width == end)
        return std::nullopt;
    return step == Step::Up ? std::min(width + kPulseStep, end) : std::max(width - kPulseStep, end);
}

}

#include "ui/wizards/frame/PulseWidth.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr std::int32_t kPulseStep = 10;

}

std::optional<std::int32_t> NextPulseWidth(std::int32_t width, std::int32_t widest, Step step)
{
    const std::int32_t wanted = width + (step == Step::Up ? kPulseStep : -kPulseStep);
    const std::int32_t next = std::clamp(wanted, 0, widest);
    return next == width ? std::nullopt : std::optional(next);
}

}

#pragma once

#include <cstdint>
#include <optional>

namespace tarvex {

enum class Step { Up, Down };

/// The next width of the horizontal sync pulse, ten pixels on or the end of the range from 0 to `widest`; none at the
/// end.
std::optional<std::int32_t> NextPulseWidth(std::int32_t width, std::int32_t widest, Step step);

}

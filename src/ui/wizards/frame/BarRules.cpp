#include "ui/wizards/frame/BarRules.h"

#include "base/Error.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr std::int32_t kSmallestTenthRange = 11;
constexpr std::size_t kShownDecimals = 2;

}

BarSetting SetRange(std::int32_t value, ElementBounds bounds,
                    const std::function<std::int32_t(std::int32_t)>& largeStep)
{
    const auto [low, high] = std::minmax(bounds.first, bounds.second);
    if (value < low || value > high)
        RaiseRuntime(kErrValueOutOfRange, "Wizard::SetScrollRange");
    const bool reversed = bounds.first < bounds.second;
    return {{low, high, reversed ? high - value : value, largeStep(high - low)}, reversed};
}

std::int32_t ValueAt(const BarState& bar, bool reversed, std::int32_t position)
{
    return reversed ? bar.maximum - position : position;
}

std::int32_t UsualLargeStep(std::int32_t range) { return range < kSmallestTenthRange ? 1 : range / 10; }

std::string CutDecimals(const std::string& text)
{
    const std::size_t point = text.find('.');
    return point == std::string::npos ? text : text.substr(0, point + 1 + kShownDecimals);
}

BarKeyEffect PressBarKey(BarKey key, const BarState& bar)
{
    const std::int64_t step = bar.largeChange;
    const auto lowered = bar.position - step < bar.minimum ? bar.minimum : bar.position;
    const auto raised = bar.position + step > bar.maximum ? bar.maximum : bar.position;
    switch (key) {
    case BarKey::Right:
        return {key, bar.position, bar.position >= bar.maximum};
    case BarKey::Left:
        return {key, bar.position, bar.position <= bar.minimum};
    case BarKey::PageDown:
        return {BarKey::PageUp, lowered, lowered <= bar.minimum};
    case BarKey::Down:
        return {BarKey::Up, lowered, lowered <= bar.minimum};
    case BarKey::PageUp:
        return {BarKey::PageDown, raised, raised >= bar.maximum};
    case BarKey::Up:
        return {BarKey::Down, raised, raised >= bar.maximum};
    case BarKey::Other:
        break;
    }
    return {BarKey::Other, bar.position, false};
}

}

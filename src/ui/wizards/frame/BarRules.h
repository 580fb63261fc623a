#pragma once

#include "ui/wizards/frame/IWizardFrameView.h"
#include "ui/wizards/frame/IWizardProduct.h"

#include <cstdint>
#include <functional>
#include <string>

namespace tarvex {

/// A bar together with the direction in which it runs.
struct BarSetting {
    BarState bar;
    bool reversed = false; ///< the bar runs opposite to the element's value
};

/// The bar that a value outside its bounds leaves behind.
inline constexpr BarState kUnusableBar{1, 1, 1, 1, 1};

/// The bar for a value within two bounds; `largeStep` gives the large step for a range. Raises 12 for a value outside
/// the bounds.
BarSetting SetRange(std::int32_t value, ElementBounds bounds,
                    const std::function<std::int32_t(std::int32_t)>& largeStep);

/// The element's value at a position of the bar.
std::int32_t ValueAt(const BarState& bar, bool reversed, std::int32_t position);

/// The large step of most wizards: a tenth of the range, 1 for a small range.
std::int32_t UsualLargeStep(std::int32_t range);

/// A text with a decimal point, cut two digits after the point; any other text as it is.
std::string CutDecimals(const std::string& text);

enum class BarKey { Other, Left, Right, Up, Down, PageUp, PageDown };

/// What a key pressed on the bar does before the bar itself gets a key.
struct BarKeyEffect {
    BarKey passedOn;       ///< the key that the bar gets instead
    std::int32_t position; ///< where the bar is put first
    bool beeps;            ///< the bar stands at the end to which the key leads
};

/// Up and Page Up raise the position, and no large step is lost at the ends.
BarKeyEffect PressBarKey(BarKey key, const BarState& bar);

}

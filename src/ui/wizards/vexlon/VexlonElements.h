#pragma once

#include "ui/wizards/frame/IWizardProduct.h"
#include "ui/wizards/frame/WizardDescription.h"
#include "ui/wizards/vexlon/VexlonTiming.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// How an element's value stands in its registers.
enum class Mapping { Scaled, TwoBytes, Brightness, Contrast };

/// Where the bounds of an element come from: from its first register, forward or reversed, or they are fixed.
enum class BoundsFrom { ReversedRegister, Register, Table };

/// One configuration element of a scaler board.
struct VexlonElement {
    std::string_view name;
    const char* picture; ///< none: only where the init file names it
    Mapping mapping;
    const char* first; ///< the register, the upper one of two, or the red one of three
    const char* second;
    std::int32_t unit; ///< of a scaled value
    BoundsFrom boundsFrom;
    ElementBounds bounds;
};

/// The element of exactly this name, or none.
const VexlonElement* FindVexlonElement(std::string_view name);

/// Those that are shown where the init file names no pictures.
std::vector<BuiltInElement> BuiltInVexlonElements();

/// The bounds that the bar gets, for a first register with values from `minimum` to `maximum`.
ElementBounds BoundsOf(const VexlonElement& element, std::int32_t minimum, std::int32_t maximum);

/// The value of an element of one or two registers that hold `first` and `second`.
std::int32_t ValueFromRegisters(const VexlonElement& element, std::int32_t first, std::int32_t second);

/// What a value of such an element writes, in order; nothing for a value that does not fit two registers.
std::vector<RegisterValue> WritesOf(const VexlonElement& element, std::int32_t value);

/// File name of the help picture of an element on a board.
std::string HelpPictureOf(std::string_view element, const std::string& device);

}

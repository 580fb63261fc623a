#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// True when the dotted version is at least the dotted minimum, compared as three numbers, most significant first.
/// A missing part counts as 0. A version with a part that is no 16-bit number is never at least anything, and nothing
/// is at least such a minimum.
bool IsVersionAtLeast(std::string_view version, std::string_view minimum);

/// The program's own version, such as v1.4.1.
std::string AppVersionString();

/// The day on which the program was built, such as November 23, 2009.
std::string BuildDateText();

}

#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// What a harness does with each input; every harness has its own.
void Check(std::string_view input);

/// Ends the run as a finding when something that must hold does not.
void Require(bool holds, const char* what);

}

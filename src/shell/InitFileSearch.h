#pragma once

#include "base/ProgramState.h"
#include "platform/IFileSystem.h"
#include "platform/IUserPrompts.h"

#include <string>

namespace tarvex {

inline constexpr const char* kInitFileName = "Tarvex.xml";
inline constexpr const char* kHelpFileName = "Tarvex.hlp";

/// The path of the init file: beside the program, else where the user says. Ends the program with code 2 when he does
/// not say.
std::string FindInitFile(const ProgramState& state, IFileSystem& files, IUserPrompts& prompts);

}

#pragma once

#include "base/ProgramState.h"
#include "platform/IUserPrompts.h"

#include <string>
#include <string_view>

namespace tarvex {

/// What the command line asked for.
struct CommandLine {
    std::string dataFile;      ///< as spelt, or empty
    std::string wizardProduct; ///< upper-cased, "_" replaced by "-", or empty
    bool help = false;
    bool selfTest = false;
    bool demo = false;
    bool batch = false;
};

/// Reads the arguments, joined by blanks. An unknown switch is told to the user, unless batch mode was asked for before
/// it, and ends the program with code 1.
CommandLine ParseCommandLine(std::string_view text, IUserPrompts& prompts);

/// Shows the usage box.
void ShowUsage(const ProgramState& state, IUserPrompts& prompts);

}

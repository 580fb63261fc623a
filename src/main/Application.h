#pragma once

#include <string>

namespace tarvex {

/// Builds the whole program from its parts, runs it and takes it down. `commandLine` is the arguments joined by blanks.
/// Needs a QApplication. Returns the exit code.
int RunApplication(const std::string& commandLine);

}

#pragma once

#include "base/ProgramState.h"
#include "platform/IFileSystem.h"

#include <string>

namespace tarvex {

/// What the help-tip panel is to show: rich text or, where that is empty, plain text; and a message that goes with it.
struct HelpTip {
    std::string richText;
    std::string text;
    std::string message;
};

/// Finds and reads a help tip: the path as it is, else in the help-tip folder, else the default tip. A file that cannot
/// be read gives a text that says so.
HelpTip FindHelpTip(IFileSystem& files, const ProgramState& state, const std::string& path);

}

#pragma once

#include "base/ProgramState.h"

namespace tarvex {

/// Where the program lies, which process it is, and which folder stands for "c:\": $TARVEX_ROOT, else tarvex in the
/// user's state folder.
ProgramState StateOfThisProcess();

}

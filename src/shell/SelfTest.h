#pragma once

#include "base/IErrorLog.h"
#include "base/ProgramState.h"
#include "platform/IClock.h"
#include "platform/IFileSystem.h"
#include "shell/UT_Output.h"

#include <string>

namespace tarvex {

struct SelfTestServices {
    const ProgramState& state;
    IFileSystem& files;
    IClock& clock;
    IErrorLog& errorLog;
};

/// Runs the program's tests of itself and shows them in the window. The report file is written anew; failed assertions
/// are appended to UT_Failures.txt in the root folder, which the report names then. A report that cannot be written is
/// logged, and the tests run without it.
void RunSelfTest(const std::string& reportFile, UT_Output& output, const SelfTestServices& services);

}

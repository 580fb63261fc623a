#pragma once

#include "shell/UT_Output.h"

#include <cstdint>

namespace tarvex {

/// One test class of the self-test.
class UT_Test {
public:
    virtual ~UT_Test() = default;

    /// The window that the report lines go to; it has to outlive the test. Before Run.
    void InitOutput(UT_Output& output) { UT_Test_InitOutput(output); }
    /// Runs all cases. A failed assertion and an unexpected error are counted and logged, and the run goes on.
    void Run() { UT_Test_Run(); }
    /// Number of failures so far.
    std::int32_t ErrorCount() { return UT_Test_ErrorCount(); }
    /// Weight of the test in the progress bar.
    std::int32_t TestCount() { return UT_Test_TestCount(); }

private:
    virtual void UT_Test_InitOutput(UT_Output& output) = 0;
    virtual void UT_Test_Run() = 0;
    virtual std::int32_t UT_Test_ErrorCount() = 0;
    virtual std::int32_t UT_Test_TestCount() = 0;
};

}

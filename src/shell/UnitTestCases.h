#pragma once

#include "shell/UT_Test.h"
#include "shell/UnitTest.h"

#include <functional>
#include <string>
#include <vector>

namespace tarvex {

/// What the test classes share: their cases run one after the other, each reported to the window; failures are counted
/// and logged, and none of them stops the run.
class UnitTestCases : public UT_Test {
protected:
    struct Case {
        std::string name;
        std::function<void()> run;
        std::string nameInFailure = {}; ///< where an unexpected error names the case otherwise
    };

    UnitTestCases(std::string className, std::string title, std::int32_t weight, FailureFile failures)
        : className_(std::move(className)), title_(std::move(title)), weight_(weight), failures_(std::move(failures))
    {}

    void CheckTrue(bool condition, const std::string& message);
    void CheckFalse(bool condition, const std::string& message) { CheckTrue(!condition, message); }

private:
    virtual std::vector<Case> Cases() = 0;

    void UT_Test_InitOutput(UT_Output& output) override { output_ = &output; }
    void UT_Test_Run() override;
    std::int32_t UT_Test_ErrorCount() override { return errorCount_; }
    std::int32_t UT_Test_TestCount() override { return weight_; }

    void RunCase(const Case& each);
    void Report(const std::string& line);

    std::string className_;
    std::string title_;
    std::int32_t weight_;
    FailureFile failures_;
    UT_Output* output_ = nullptr;
    std::int32_t errorCount_ = 0;
};

}

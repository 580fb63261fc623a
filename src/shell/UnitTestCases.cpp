#include "shell/UnitTestCases.h"

#include <exception>

namespace tarvex {

void UnitTestCases::CheckTrue(bool condition, const std::string& message)
{
    if (!AssertTrue(condition, message, nullptr, failures_))
        ++errorCount_;
}

void UnitTestCases::UT_Test_Run()
{
    Report(title_);
    for (const Case& each : Cases()) {
        Report("     running: " + each.name);
        RunCase(each);
    }
    Report(errorCount_ > 0 ? title_ + " FAILURES: " + std::to_string(errorCount_) : title_ + " SUCCESS!");
}

void UnitTestCases::RunCase(const Case& each)
{
    try {
        each.run();
    } catch (const std::exception& error) {
        ++errorCount_;
        const std::string& name = each.nameInFailure.empty() ? each.name : each.nameInFailure;
        LogFailure("FAIL: " + className_ + "::" + name + " unexpected error caught. " + error.what(), failures_);
    }
}

void UnitTestCases::Report(const std::string& line)
{
    if (output_)
        output_->AddReportLine(line);
}

}

#include "shell/UnitTest.h"

namespace tarvex {

void LogFailure(std::string_view line, const FailureFile& failures)
{
    if (const auto stream = failures.files.OpenText(failures.path, OpenMode::Append))
        stream->WriteLine(std::string(line) + " @ " + failures.clock.NowText());
}

bool AssertTrue(bool condition, std::string_view message, ITextStream* report, const FailureFile& failures)
{
    if (condition)
        return true;
    const std::string line = "FAIL: '" + std::string(message) + "'";
    if (report)
        report->WriteLine(line);
    else
        LogFailure(line, failures);
    return false;
}

bool AssertFalse(bool condition, std::string_view message, ITextStream* report, const FailureFile& failures)
{
    return AssertTrue(!condition, message, report, failures);
}

}

#pragma once

#include "platform/IClock.h"
#include "platform/IFileSystem.h"

#include <string>
#include <string_view>

namespace tarvex {

/// Where failed assertions go that have no report stream: a text file, opened for each line and closed after it.
struct FailureFile {
    IFileSystem& files;
    IClock& clock;
    std::string path;
};

/// Appends the line with date and time. A line that cannot be written is lost.
void LogFailure(std::string_view line, const FailureFile& failures);

/// Whether the condition holds. When it does not, the message is logged: to the report stream, or with date and time to
/// the failure file where there is none.
bool AssertTrue(bool condition, std::string_view message, ITextStream* report, const FailureFile& failures);
/// The same with the opposite condition.
bool AssertFalse(bool condition, std::string_view message, ITextStream* report, const FailureFile& failures);

}

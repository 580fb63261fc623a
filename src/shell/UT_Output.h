#pragma once

#include <cstdint>
#include <string>

namespace tarvex {

/// The window of the self-test as the tests see it.
class UT_Output {
public:
    virtual ~UT_Output() = default;

    /// Sets the progress to 0 of `count`.
    virtual void SetProgressRange(std::int32_t count) = 0;
    /// Remembers the report file and offers to open it.
    virtual void SetFileLink(const std::string& fileName) = 0;
    /// Appends a line, which is in view then, and advances the progress by one, never past its maximum.
    virtual void AddReportLine(const std::string& text) = 0;
};

}

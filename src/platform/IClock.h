#pragma once

#include <string>

namespace tarvex {

/// The system's date and time.
class IClock {
public:
    virtual ~IClock() = default;

    /// Now, in the system's default text form: local date, blank, time with seconds (2026-03-04 15:06:07).
    virtual std::string NowText() = 0;
};

}

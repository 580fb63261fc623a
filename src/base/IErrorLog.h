#pragma once

#include <cstdint>
#include <string_view>

namespace tarvex {

/// Where failures are written down. Logging never fails and never throws: a log that cannot be written is passed over.
class IErrorLog {
public:
    virtual ~IErrorLog() = default;

    /// Appends one entry.
    virtual void LogError(std::string_view description, std::int32_t number, std::string_view source) noexcept = 0;

    /// Appends an entry for the exception being handled; call it inside a catch block only.
    virtual void LogCurrentError() noexcept = 0;
};

}

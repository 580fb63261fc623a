#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace tarvex {

/// Every failure that the system raises: a signed 32-bit number, the operation that raised it, and a text for people.
/// Foreign failures (errno, library results) are turned into this type where they enter.
class Error : public std::exception {
public:
    Error(std::int32_t number, std::string source, std::string description);

    std::int32_t Number() const noexcept { return number_; }
    const std::string& Source() const noexcept { return source_; }
    const std::string& Description() const noexcept { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    std::int32_t number_;
    std::string source_;
    std::string description_;
};

/// The object-error base plus an offset, as the signed 32-bit number that is logged.
constexpr std::int32_t ObjectError(std::uint32_t offset) { return static_cast<std::int32_t>(0x80040000U + offset); }

// Run-time errors, raised with a fixed description each.
inline constexpr std::int32_t kErrInvalidCall = 5;
inline constexpr std::int32_t kErrOverflow = 6;
inline constexpr std::int32_t kErrSubscript = 9;
inline constexpr std::int32_t kErrValueOutOfRange = 12;
inline constexpr std::int32_t kErrTypeMismatch = 13;
inline constexpr std::int32_t kErrFileNotFound = 53;

/// Throws an Error of these three parts.
[[noreturn]] void Raise(std::int32_t number, std::string source, std::string description);

/// Throws a run-time error (one of the six numbers above) with the description that belongs to its number.
[[noreturn]] void RaiseRuntime(std::int32_t number, std::string source);

}

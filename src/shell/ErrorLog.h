#pragma once

#include "base/IErrorLog.h"
#include "platform/IFileSystem.h"

#include <string>

namespace tarvex {

/// The error log: a text file to which every entry is appended as an empty line, "number raised from source" and the
/// description. The file is opened and closed for each entry.
class ErrorLog : public IErrorLog {
public:
    /// `path` is TarvexError.log, relative to the working folder, in the program.
    ErrorLog(IFileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

    void LogError(std::string_view description, std::int32_t number, std::string_view source) noexcept override;
    void LogCurrentError() noexcept override;

private:
    IFileSystem& files_;
    std::string path_;
};

}

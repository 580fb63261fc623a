#pragma once

#include "base/Error.h"
#include "base/IErrorLog.h"

#include <vector>

namespace tarvex {

/// Keeps the entries of the error log.
class FakeErrorLog : public IErrorLog {
public:
    struct Entry {
        std::string description;
        std::int32_t number = 0;
        std::string source;

        bool operator==(const Entry&) const = default;
    };

    void LogError(std::string_view description, std::int32_t number, std::string_view source) noexcept override
    {
        entries.push_back({std::string(description), number, std::string(source)});
    }

    void LogCurrentError() noexcept override
    {
        try {
            throw;
        } catch (const Error& error) {
            LogError(error.Description(), error.Number(), error.Source());
        } catch (...) {
            LogError("not an Error", 0, "");
        }
    }

    std::vector<Entry> entries;
};

}

#pragma once

#include "platform/ISettingsStore.h"

#include <map>
#include <utility>

namespace tarvex {

/// Settings in memory.
class FakeSettingsStore : public ISettingsStore {
public:
    std::optional<std::string> Read(std::string_view section, std::string_view key) override
    {
        const auto found = values.find({std::string(section), std::string(key)});
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }

    void Write(std::string_view section, std::string_view key, std::string_view value) override
    {
        values[{std::string(section), std::string(key)}] = value;
    }

    void Refresh() override {}
    bool Flush() override
    {
        ++flushes;
        return true;
    }

    std::map<std::pair<std::string, std::string>, std::string> values; ///< by section and key
    int flushes = 0;
};

}

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

/// The user's settings between runs: plain text under a section and a key. A store that cannot be read gives no value;
/// one that cannot be written says so. Neither delays the program by more than a second.
class ISettingsStore {
public:
    virtual ~ISettingsStore() = default;

    /// The stored text, or none when the key is missing or the store cannot be read.
    virtual std::optional<std::string> Read(std::string_view section, std::string_view key) = 0;
    virtual void Write(std::string_view section, std::string_view key, std::string_view value) = 0;
    /// Takes over what another program has stored since; what was written here and is not on disk yet stays.
    virtual void Refresh() = 0;
    /// Brings what was written to disk, beside what another program has stored since; false when that failed.
    virtual bool Flush() = 0;
};

}

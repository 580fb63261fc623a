#pragma once

#include "platform/ISettingsStore.h"

#include <map>
#include <string>

namespace tarvex {

/// The settings as an INI file in the user's configuration folder. It is read once, and written only by Flush.
class SettingsStore : public ISettingsStore {
public:
    explicit SettingsStore(std::string path);
    /// The file of an application in the user's configuration folder.
    static std::string DefaultPath(const std::string& application);

    std::optional<std::string> Read(std::string_view section, std::string_view key) override;
    void Write(std::string_view section, std::string_view key, std::string_view value) override;
    bool Flush() override;
};

}

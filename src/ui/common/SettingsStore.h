#pragma once

#include "platform/ISettingsStore.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tarvex {

/// The settings as an INI file in the user's configuration folder. It is written only by Flush, which keeps every line
/// that is not ours. QSettings is not used: it waits half a minute for a lock that another process
/// holds. Here reading takes no lock, and writing replaces the file in one step.
class SettingsStore : public ISettingsStore {
public:
    /// Reads the file. One that is missing counts as empty; one that cannot be read, too, but it is never overwritten.
    explicit SettingsStore(std::string path);
    /// The file of an application in the user's configuration folder.
    static std::string DefaultPath(const std::string& application);

    std::optional<std::string> Read(std::string_view section, std::string_view key) override;
    void Write(std::string_view section, std::string_view key, std::string_view value) override;
    void Refresh() override;
    /// Creates the folder where it is missing. True, too, when nothing has changed.
    bool Flush() override;

private:
    struct Place {
        std::size_t line; ///< where the key stands, or where it is to be inserted
        bool keyFound = false;
        bool sectionFound = false;
    };
    Place Find(std::string_view section, std::string_view key) const;
    void Load();
    void Put(const std::string& section, const std::string& key, const std::string& value);

    std::string path_;
    std::vector<std::string> lines_;
    bool usable_ = true;
    std::map<std::pair<std::string, std::string>, std::string> written_; ///< by section and key, not on disk yet
};

}

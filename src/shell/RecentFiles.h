#pragma once

#include "base/Event.h"
#include "platform/IFileSystem.h"
#include "platform/ISettingsStore.h"

#include <string>
#include <vector>

namespace tarvex {

/// The data files that the user opened or saved last, the latest first. They stand in a section of their own of the
/// settings, to which every program adds at once. The main window owns the list.
class RecentFiles {
public:
    static constexpr std::size_t kMost = 8;

    RecentFiles(ISettingsStore& store, IFileSystem& files) : store_(store), files_(files) {}

    /// Reads what earlier runs stored.
    void Load();
    const std::vector<std::string>& Paths() const { return paths_; }
    /// Whether the file is still there.
    bool IsThere(const std::string& path) const { return files_.FileExists(path); }
    /// Puts a file first; one more than the list holds pushes the oldest out. A relative path counts from the current
    /// folder.
    void Add(const std::string& path);
    void Drop(const std::string& path);

    /// The list is another one.
    Event<RecentFiles> Changed;

private:
    void Read();
    void Store();

    ISettingsStore& store_;
    IFileSystem& files_;
    std::vector<std::string> paths_;
};

}

#include "shell/RecentFiles.h"

#include <algorithm>
#include <filesystem>

namespace tarvex {

namespace {

constexpr const char* kSection = "RecentFiles";

std::string Key(std::size_t position) { return "File" + std::to_string(position + 1); }

std::string Absolute(const std::string& path)
{
    std::error_code error;
    const auto absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.string();
}

}

void RecentFiles::Load()
{
    Read();
    Changed.Raise();
}

void RecentFiles::Read()
{
    store_.Refresh();
    paths_.clear();
    for (std::size_t i = 0; i < kMost; ++i)
        if (auto path = store_.Read(kSection, Key(i)).value_or(""); path.starts_with('/'))
            paths_.push_back(std::move(path));
}

void RecentFiles::Add(const std::string& path)
{
    const std::string absolute = Absolute(path);
    Read();
    std::erase(paths_, absolute);
    paths_.insert(paths_.begin(), absolute);
    paths_.resize(std::min(paths_.size(), kMost));
    Store();
}

void RecentFiles::Drop(const std::string& path)
{
    Read();
    std::erase(paths_, path);
    Store();
}

void RecentFiles::Store()
{
    for (std::size_t i = 0; i < kMost; ++i) {
        const std::string path = i < paths_.size() ? paths_[i] : "";
        if (store_.Read(kSection, Key(i)).value_or("") != path)
            store_.Write(kSection, Key(i), path);
    }
    store_.Flush(); // where that fails, the preferences tell of it
    Changed.Raise();
}

}

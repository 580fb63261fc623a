#include "base/Text.h"
#include "platform/files/PosixFileSystem.h"

#include <algorithm>
#include <filesystem>

namespace tarvex {

namespace {

bool Exists(const std::string& path)
{
    std::error_code error;
    return std::filesystem::exists(path, error);
}

/// The folder's entry of this name, exactly or else ignoring letter case; empty when there is none.
std::string FindEntry(IFileSystem& files, const std::string& folder, const std::string& name)
{
    if (Exists(folder + name))
        return folder + name;
    const auto names = files.ListFolder(folder.empty() ? "." : folder);
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&](const std::string& other) { return EqualsIgnoringCase(other, name); });
    return found == names.end() ? std::string() : folder + *found;
}

}

std::string PosixFileSystem::FindOwnFile(const std::string& path)
{
    if (Exists(path))
        return path;
    const std::string native = ReplaceAll(path, '\\', '/');
    std::string found = native.starts_with('/') ? "/" : "";
    for (const std::string& name : Split(native, "/")) {
        if (name.empty())
            continue;
        if (!found.empty() && !found.ends_with('/'))
            found += '/';
        found = FindEntry(*this, found, name);
        if (found.empty())
            return path;
    }
    return found;
}

}

#pragma once

#include "base/Error.h"
#include "base/Text.h"
#include "platform/IFileSystem.h"

#include <map>
#include <set>

namespace tarvex {

/// Files in memory. Folders need not be made; those that are get noted.
class FakeFileSystem : public IFileSystem {
public:
    bool FileExists(const std::string& path) override { return files.contains(path); }

    std::string TemporaryFolder() override { return "/tmp"; }

    std::string FindOwnFile(const std::string& path) override
    {
        if (files.contains(path))
            return path;
        for (const auto& [name, content] : files)
            if (EqualsIgnoringCase(name, ReplaceAll(path, '\\', '/')))
                return name;
        return path;
    }

    bool CopyToWorkingFile(const std::string& source, const std::string& target) override
    {
        const std::string& content = Find(source, "FakeFileSystem::CopyToWorkingFile");
        if (source == target)
            return false;
        files[target] = content;
        return true;
    }

    bool Remove(const std::string& path) noexcept override { return files.erase(path) != 0; }

    void WriteWorkingFile(const std::string& path, std::string_view content) override { files[path] = content; }

    std::vector<std::string> ListFolder(const std::string& path) override
    {
        std::vector<std::string> names;
        for (const auto& [name, content] : files)
            if (name.starts_with(path + "/") && name.find('/', path.size() + 1) == std::string::npos)
                names.push_back(name.substr(path.size() + 1));
        return names;
    }

    std::string ReadWholeFile(const std::string& path, std::size_t limit) override
    {
        const std::string& content = Find(path, "FakeFileSystem::ReadWholeFile");
        if (content.size() > limit)
            Raise(ObjectError(1), "FakeFileSystem::ReadWholeFile", "File too large");
        return content;
    }

    void ReplaceFile(const std::string& path, std::string_view content) override { files[path] = content; }

    std::unique_ptr<ITextStream> OpenText(const std::string& path, OpenMode mode) override
    {
        if (mode == OpenMode::Overwrite)
            files[path].clear();
        return std::make_unique<Stream>(files, path);
    }

    bool CreateFolder(const std::string& path) override
    {
        folders.insert(path);
        return true;
    }

    bool IsSameFile(const std::string& left, const std::string& right) override
    {
        return left == right && files.contains(left);
    }

    bool IsOwnWorkingFile(const std::string& path) override { return files.contains(path); }

    bool ProcessLives(long long processId) override { return livingProcesses.contains(processId); }

    std::map<std::string, std::string> files; ///< content by path
    std::set<std::string> folders;            ///< what CreateFolder made
    std::set<long long> livingProcesses;

private:
    class Stream : public ITextStream {
    public:
        Stream(std::map<std::string, std::string>& files, std::string path) : files_(files), path_(std::move(path))
        {
            files_[path_];
        }

        void WriteLine(std::string_view line) noexcept override { files_[path_].append(line).append("\n"); }

    private:
        std::map<std::string, std::string>& files_;
        std::string path_;
    };

    const std::string& Find(const std::string& path, const char* operation)
    {
        const auto found = files.find(path);
        if (found == files.end())
            RaiseRuntime(kErrFileNotFound, operation);
        return found->second;
    }
};

}

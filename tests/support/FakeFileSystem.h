#pragma once

#include "base/Error.h"
#include "base/Text.h"
#include "platform/IFileSystem.h"

#include <map>
#include <set>

namespace tarvex {

enum class FileOperation { CopyToWorkingFile, OpenText };

/// Files in memory. Folders need not be made. Chosen operations fail, each the way it says.
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
        if (failing.contains(FileOperation::CopyToWorkingFile))
            Raise(ObjectError(1), "FakeFileSystem::CopyToWorkingFile", "No space left on device");
        const std::string& content = Find(source);
        if (source != target)
            files[target] = content;
        return source != target;
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
        if (Find(path).size() > limit)
            Raise(ObjectError(1), "FakeFileSystem::ReadWholeFile", "File too large");
        return files[path];
    }

    void ReplaceFile(const std::string& path, std::string_view content) override { files[path] = content; }

    std::unique_ptr<ITextStream> OpenText(const std::string& path, OpenMode mode) override
    {
        if (failing.contains(FileOperation::OpenText))
            return nullptr;
        if (mode == OpenMode::Overwrite)
            files[path].clear();
        return std::make_unique<Stream>(files[path]);
    }

    bool CreateFolder(const std::string&) override { return true; }

    bool IsSameFile(const std::string& left, const std::string& right) override
    {
        return Resolve(left) == Resolve(right);
    }

    bool IsOwnWorkingFile(const std::string& path) override { return files.contains(path); }

    bool ProcessLives(long long processId) override { return livingProcesses.contains(processId); }

    std::map<std::string, std::string> files; ///< content by path
    std::map<std::string, std::string> links; ///< what another spelling of a path stands for
    std::set<FileOperation> failing;
    std::set<long long> livingProcesses;

private:
    /// Lines for a file, which has to outlive it.
    class Stream : public ITextStream {
    public:
        explicit Stream(std::string& content) : content_(content) {}
        void WriteLine(std::string_view line) noexcept override { content_.append(line).append("\n"); }

    private:
        std::string& content_;
    };

    const std::string& Find(const std::string& path) const
    {
        const auto found = files.find(path);
        if (found == files.end())
            RaiseRuntime(kErrFileNotFound, "FakeFileSystem::Find");
        return found->second;
    }

    std::string Resolve(const std::string& path) const { return links.contains(path) ? links.at(path) : path; }
};

}

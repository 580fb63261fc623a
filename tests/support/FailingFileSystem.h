#pragma once

#include "base/Error.h"
#include "platform/IFileSystem.h"

#include <set>

namespace tarvex {

enum class FileOperation { CopyToWorkingFile, OpenText };

/// A file system of which chosen operations fail, each the way it says: with the error of a full disk or with its
/// answer. The others are those of the file system behind it.
class FailingFileSystem : public IFileSystem {
public:
    explicit FailingFileSystem(IFileSystem& inner) : inner_(inner) {}

    bool FileExists(const std::string& path) override { return inner_.FileExists(path); }
    std::string TemporaryFolder() override { return inner_.TemporaryFolder(); }
    std::string FindOwnFile(const std::string& path) override { return inner_.FindOwnFile(path); }
    bool Remove(const std::string& path) noexcept override { return inner_.Remove(path); }
    std::vector<std::string> ListFolder(const std::string& path) override { return inner_.ListFolder(path); }
    bool CreateFolder(const std::string& path) override { return inner_.CreateFolder(path); }
    bool IsOwnWorkingFile(const std::string& path) override { return inner_.IsOwnWorkingFile(path); }
    bool ProcessLives(long long processId) override { return inner_.ProcessLives(processId); }

    bool CopyToWorkingFile(const std::string& source, const std::string& target) override
    {
        if (failing.contains(FileOperation::CopyToWorkingFile))
            Raise(ObjectError(1), "FailingFileSystem::CopyToWorkingFile", "No space left on device");
        return inner_.CopyToWorkingFile(source, target);
    }

    void WriteWorkingFile(const std::string& path, std::string_view content) override
    {
        inner_.WriteWorkingFile(path, content);
    }

    std::string ReadWholeFile(const std::string& path, std::size_t limit) override
    {
        return inner_.ReadWholeFile(path, limit);
    }

    void ReplaceFile(const std::string& path, std::string_view content) override { inner_.ReplaceFile(path, content); }

    std::unique_ptr<ITextStream> OpenText(const std::string& path, OpenMode mode) override
    {
        return failing.contains(FileOperation::OpenText) ? nullptr : inner_.OpenText(path, mode);
    }

    bool IsSameFile(const std::string& left, const std::string& right) override
    {
        return inner_.IsSameFile(left, right);
    }

    std::set<FileOperation> failing;

private:
    IFileSystem& inner_;
};

}

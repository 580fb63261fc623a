#pragma once

#include "base/Error.h"
#include "platform/IFileSystem.h"

#include <set>

namespace tarvex {

enum class FileOperation { CopyToWorkingFile, Remove, ListFolder, ReadWholeFile, ReplaceFile, OpenText, CreateFolder };

/// A file system of which chosen operations fail, each the way it says: with the error of a full disk or with its
/// answer. The others are those of the file system behind it.
class FailingFileSystem : public IFileSystem {
public:
    explicit FailingFileSystem(IFileSystem& inner) : inner_(inner) {}

    bool FileExists(const std::string& path) override { return inner_.FileExists(path); }
    std::string TemporaryFolder() override { return inner_.TemporaryFolder(); }
    std::string FindOwnFile(const std::string& path) override { return inner_.FindOwnFile(path); }

    bool CopyToWorkingFile(const std::string& source, const std::string& target) override
    {
        RaiseIfFailing(FileOperation::CopyToWorkingFile, "CopyToWorkingFile");
        return inner_.CopyToWorkingFile(source, target);
    }

    bool Remove(const std::string& path) noexcept override
    {
        return !Fails(FileOperation::Remove) && inner_.Remove(path);
    }

    std::vector<std::string> ListFolder(const std::string& path) override
    {
        return Fails(FileOperation::ListFolder) ? std::vector<std::string>() : inner_.ListFolder(path);
    }

    std::string ReadWholeFile(const std::string& path, std::size_t limit) override
    {
        RaiseIfFailing(FileOperation::ReadWholeFile, "ReadWholeFile");
        return inner_.ReadWholeFile(path, limit);
    }

    void ReplaceFile(const std::string& path, std::string_view content) override
    {
        RaiseIfFailing(FileOperation::ReplaceFile, "ReplaceFile");
        inner_.ReplaceFile(path, content);
    }

    std::unique_ptr<ITextStream> OpenText(const std::string& path, OpenMode mode) override
    {
        return Fails(FileOperation::OpenText) ? nullptr : inner_.OpenText(path, mode);
    }

    bool CreateFolder(const std::string& path) override
    {
        return !Fails(FileOperation::CreateFolder) && inner_.CreateFolder(path);
    }

    bool IsSameFile(const std::string& left, const std::string& right) override
    {
        return inner_.IsSameFile(left, right);
    }

    bool IsOwnWorkingFile(const std::string& path) override { return inner_.IsOwnWorkingFile(path); }
    bool ProcessLives(long long processId) override { return inner_.ProcessLives(processId); }

    std::set<FileOperation> failing;

private:
    bool Fails(FileOperation operation) const noexcept { return failing.contains(operation); }

    void RaiseIfFailing(FileOperation operation, const char* name) const
    {
        if (Fails(operation))
            Raise(ObjectError(1), std::string("FailingFileSystem::") + name, "No space left on device");
    }

    IFileSystem& inner_;
};

}

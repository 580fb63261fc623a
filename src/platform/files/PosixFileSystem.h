#pragma once

#include "platform/IFileSystem.h"

namespace tarvex {

/// The files and folders of this machine.
class PosixFileSystem : public IFileSystem {
public:
    bool FileExists(const std::string& path) override;
    std::string TemporaryFolder() override;
    std::string FindOwnFile(const std::string& path) override;
    bool CopyToWorkingFile(const std::string& source, const std::string& target) override;
    void WriteWorkingFile(const std::string& path, std::string_view content) override;
    bool Remove(const std::string& path) noexcept override;
    std::vector<std::string> ListFolder(const std::string& path) override;
    std::string ReadWholeFile(const std::string& path, std::size_t limit) override;
    void ReplaceFile(const std::string& path, std::string_view content) override;
    std::unique_ptr<ITextStream> OpenText(const std::string& path, OpenMode mode) override;
    bool CreateFolder(const std::string& path) override;
    bool IsSameFile(const std::string& left, const std::string& right) override;
    bool IsOwnWorkingFile(const std::string& path) override;
    bool ProcessLives(long long processId) override;
};

}

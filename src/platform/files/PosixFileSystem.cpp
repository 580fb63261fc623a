#include "platform/files/PosixFileSystem.h"

#include "base/Error.h"
#include "platform/files/Descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace tarvex {

namespace {

class PosixTextStream : public ITextStream {
public:
    explicit PosixTextStream(Descriptor file) : file_(std::move(file)) {}

    void WriteLine(std::string_view line) noexcept override
    {
        // One call for line and line end, so that lines of two programs do not mix in one log.
        std::array<iovec, 2> pieces{{{const_cast<char*>(line.data()), line.size()}, {const_cast<char*>("\n"), 1}}};
        long count = 0;
        do
            count = writev(file_.Number(), pieces.data(), pieces.size());
        while (count < 0 && errno == EINTR);
        if (count < 0)
            return;
        const auto written = static_cast<std::size_t>(count);
        if (written < line.size() && !WriteAll(file_, line.substr(written)))
            return;
        if (written <= line.size())
            WriteAll(file_, "\n");
    }

private:
    Descriptor file_;
};

bool Status(const std::string& path, struct stat& status) { return stat(path.c_str(), &status) == 0; }

bool IsSame(const struct stat& left, const struct stat& right)
{
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

/// What CopyToWorkingFile creates: a file of this user's that nobody else may read.
bool IsWorkingFile(const struct stat& status)
{
    return S_ISREG(status.st_mode) && status.st_uid == geteuid() && (status.st_mode & 07777) == 0600;
}

/// Removes the leftover of an earlier run; any other file stays and stops the exclusive creation.
void RemoveOwnLeftover(const std::string& path, const struct stat& status)
{
    if (IsWorkingFile(status))
        unlink(path.c_str());
}

Descriptor CreateWorkingFile(const std::string& operation, const std::string& path)
{
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!file)
        RaiseFromErrno(operation, path);
    return file;
}

/// Removes a working file that the last call could not fill, and raises its error.
[[noreturn]] void GiveUpWorkingFile(const std::string& operation, const std::string& path)
{
    const int failure = errno;
    unlink(path.c_str());
    errno = failure;
    RaiseFromErrno(operation, path);
}

bool CopyBytes(const Descriptor& from, const Descriptor& to)
{
    std::array<char, 65536> buffer;
    long count = 0;
    while ((count = ReadSome(from, buffer.data(), buffer.size())) > 0)
        if (!WriteAll(to, {buffer.data(), static_cast<std::size_t>(count)}))
            return false;
    return count == 0;
}

}

bool PosixFileSystem::FileExists(const std::string& path)
{
    struct stat status {};
    return Status(path, status) && S_ISREG(status.st_mode);
}

std::string PosixFileSystem::TemporaryFolder()
{
    const char* variable = std::getenv("TMPDIR");
    std::string folder = variable ? variable : "";
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error))
        return "/tmp";
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
    return folder;
}

bool PosixFileSystem::CopyToWorkingFile(const std::string& source, const std::string& target)
{
    const std::string operation = "PosixFileSystem::CopyToWorkingFile";
    const Descriptor from = OpenRegularFile(operation, source);
    struct stat ours {};
    struct stat theirs {};
    if (fstat(from.Number(), &ours) != 0)
        RaiseFromErrno(operation, source);
    if (lstat(target.c_str(), &theirs) == 0) {
        if (IsSame(ours, theirs))
            return false;
        RemoveOwnLeftover(target, theirs);
    }
    const Descriptor to = CreateWorkingFile(operation, target);
    if (!CopyBytes(from, to))
        GiveUpWorkingFile(operation, target);
    return true;
}

void PosixFileSystem::WriteWorkingFile(const std::string& path, std::string_view content)
{
    const std::string operation = "PosixFileSystem::WriteWorkingFile";
    struct stat old {};
    if (lstat(path.c_str(), &old) == 0)
        RemoveOwnLeftover(path, old);
    Descriptor file = CreateWorkingFile(operation, path);
    if (!WriteAll(file, content) || close(file.Release()) != 0)
        GiveUpWorkingFile(operation, path);
}

bool PosixFileSystem::Remove(const std::string& path) noexcept { return unlink(path.c_str()) == 0; }

std::vector<std::string> PosixFileSystem::ListFolder(const std::string& path)
{
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(path, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
        names.push_back(entry->path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string PosixFileSystem::ReadWholeFile(const std::string& path, std::size_t limit)
{
    const std::string operation = "PosixFileSystem::ReadWholeFile";
    const Descriptor file = OpenRegularFile(operation, path);
    struct stat status {};
    if (fstat(file.Number(), &status) != 0)
        RaiseFromErrno(operation, path);
    std::string content;
    auto expected = static_cast<std::size_t>(status.st_size);
    while (true) {
        const std::size_t before = content.size();
        expected = std::max(expected, before);
        if (expected > limit)
            Raise(ObjectError(1), operation, path + ": File larger than " + std::to_string(limit) + " bytes");
        content.resize(expected + 1); // one byte more, to see the end of a file that grew meanwhile
        const long count = ReadSome(file, content.data() + before, content.size() - before);
        if (count < 0)
            RaiseFromErrno(operation, path);
        content.resize(before + static_cast<std::size_t>(count));
        if (count == 0)
            return content;
    }
}

std::unique_ptr<ITextStream> PosixFileSystem::OpenText(const std::string& path, OpenMode mode)
{
    const int how = mode == OpenMode::Append ? O_APPEND : O_TRUNC;
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | how, 0600));
    return file ? std::make_unique<PosixTextStream>(std::move(file)) : nullptr;
}

bool PosixFileSystem::CreateFolder(const std::string& path)
{
    for (std::size_t end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1))
        mkdir(path.substr(0, end).c_str(), 0700);
    mkdir(path.c_str(), 0700);
    struct stat status {};
    return Status(path, status) && S_ISDIR(status.st_mode);
}

bool PosixFileSystem::IsSameFile(const std::string& left, const std::string& right)
{
    struct stat leftStatus {};
    struct stat rightStatus {};
    return Status(left, leftStatus) && Status(right, rightStatus) && IsSame(leftStatus, rightStatus);
}

bool PosixFileSystem::IsOwnWorkingFile(const std::string& path)
{
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 && IsWorkingFile(status);
}

bool PosixFileSystem::ProcessLives(long long processId)
{
    if (processId <= 0 || processId > std::numeric_limits<pid_t>::max())
        return false;
    return kill(static_cast<pid_t>(processId), 0) == 0 || errno == EPERM;
}

}

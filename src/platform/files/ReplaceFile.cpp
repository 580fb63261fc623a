#include "platform/files/Descriptor.h"
#include "platform/files/PosixFileSystem.h"

#include "base/Error.h"
#include "base/Numbers.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvex {

namespace {

constexpr const char* kOperation = "PosixFileSystem::ReplaceFile";
constexpr int kMostLinks = 40;

/// The path that the links at its end lead to, whether something is there or not.
std::string FollowLinks(const std::string& path)
{
    std::filesystem::path current = path;
    std::error_code error;
    for (int links = 0; std::filesystem::is_symlink(current, error); ++links) {
        if (links == kMostLinks) {
            errno = ELOOP;
            RaiseFromErrno(kOperation, path);
        }
        current = current.parent_path() / std::filesystem::read_symlink(current, error);
    }
    return current.string();
}

std::string UnguessableName()
{
    std::array<std::int32_t, 4> random{};
    if (getrandom(random.data(), sizeof random, 0) != static_cast<long>(sizeof random))
        RaiseFromErrno(kOperation, "getrandom");
    std::string name = ".tarvex-";
    for (const std::int32_t part : random)
        name += ToHex(part, 8);
    return name;
}

/// One replacement: the folder and the sibling that takes the old file's place. An unfinished one removes the sibling.
class Replacement {
public:
    explicit Replacement(const std::string& path) : path_(path)
    {
        const std::filesystem::path target = path;
        name_ = target.filename().string();
        folderPath_ = target.has_parent_path() ? target.parent_path().string() : ".";
        folder_ = Descriptor(open(folderPath_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        Check(static_cast<bool>(folder_));
        if (name_.empty())
            Raise(ObjectError(1), kOperation, path_ + ": Not a regular file");
    }

    ~Replacement()
    {
        if (!sibling_.empty())
            unlinkat(folder_.Number(), sibling_.c_str(), 0);
    }

    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    void Run(std::string_view content)
    {
        const bool isThere = LookAtTarget();
        Descriptor file = CreateSibling();
        if (isThere)
            TakeOverRights(file);
        Check(WriteAll(file, content));
        Check(fsync(file.Number()) == 0);
        Check(close(file.Release()) == 0);
        Check(renameat(folder_.Number(), sibling_.c_str(), folder_.Number(), name_.c_str()) == 0);
        sibling_.clear();
        Check(fsync(folder_.Number()) == 0 || errno == EINVAL); // some file systems cannot flush a folder
    }

private:
    void Check(bool succeeded) const
    {
        if (!succeeded)
            RaiseFromErrno(kOperation, path_);
    }

    /// Whether there is an old file. Raises for one that may not be written: a rename would pass over its mode.
    bool LookAtTarget()
    {
        if (fstatat(folder_.Number(), name_.c_str(), &old_, AT_SYMLINK_NOFOLLOW) != 0) {
            Check(errno == ENOENT);
            return false;
        }
        if (!S_ISREG(old_.st_mode))
            Raise(ObjectError(1), kOperation, path_ + ": Not a regular file");
        Check(faccessat(folder_.Number(), name_.c_str(), W_OK, AT_EACCESS) == 0);
        return true;
    }

    Descriptor CreateSibling()
    {
        const std::string sibling = UnguessableName();
        Descriptor file(
            openat(folder_.Number(), sibling.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
        Check(static_cast<bool>(file));
        sibling_ = sibling;
        return file;
    }

    /// Owner and group are kept where the system lets us; the mode always.
    void TakeOverRights(const Descriptor& file)
    {
        if (fchown(file.Number(), old_.st_uid, old_.st_gid) != 0)
            static_cast<void>(!fchown(file.Number(), geteuid(), old_.st_gid));
        Check(fchmod(file.Number(), old_.st_mode & 0777) == 0);
    }

    std::string path_;
    std::string name_;
    std::string folderPath_;
    Descriptor folder_;
    std::string sibling_;
    struct stat old_ {};
};

}

void PosixFileSystem::ReplaceFile(const std::string& path, std::string_view content)
{
    Replacement(FollowLinks(path)).Run(content);
}

}

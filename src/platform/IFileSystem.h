#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// An open text file that takes whole lines. A line that cannot be written is lost without an error.
class ITextStream {
public:
    virtual ~ITextStream() = default;

    /// Writes the bytes of the line and a line end, and hands them to the system before it returns.
    virtual void WriteLine(std::string_view line) noexcept = 0;
};

enum class OpenMode { Append, Overwrite };

/// Files and folders. Paths are UTF-8 text with the native separator. Failures raise Error with the operation as
/// source, the number 53 for a file that is not there and 0x80040001 otherwise, unless an operation says that it
/// answers instead.
class IFileSystem {
public:
    virtual ~IFileSystem() = default;

    /// True for a regular file (links followed); false for anything else and for what cannot be looked at.
    virtual bool FileExists(const std::string& path) = 0;
    /// The temporary folder, without a separator at its end.
    virtual std::string TemporaryFolder() = 0;
    /// One of the program's own files as it really lies there: exactly, else ignoring letter case; a backslash
    /// separates. The path itself when nothing matches.
    virtual std::string FindOwnFile(const std::string& path) = 0;
    /// Copies a file so that it becomes a working copy of this process: created anew and without following a link,
    /// mode 0600. A leftover working copy of ours under that name is removed first; any other file there is a failure.
    /// Copying a file onto itself does nothing and answers false; true when a copy was made.
    virtual bool CopyToWorkingFile(const std::string& source, const std::string& target) = 0;
    /// Writes a working copy anew, created and removed on the terms of CopyToWorkingFile; on any failure none stays.
    virtual void WriteWorkingFile(const std::string& path, std::string_view content) = 0;
    /// Removes a file; false when it is not there or cannot be removed.
    virtual bool Remove(const std::string& path) noexcept = 0;
    /// Names (not paths) of the entries of a folder; none when it cannot be read.
    virtual std::vector<std::string> ListFolder(const std::string& path) = 0;
    /// The whole content. Raises also for a file above `limit` bytes and for what is no regular file.
    virtual std::string ReadWholeFile(const std::string& path, std::size_t limit) = 0;
    /// Replaces a user's file in one step: at every moment the old or the new content is there whole. The content is on
    /// disk when this returns; on any failure the old file stays and this raises.
    virtual void ReplaceFile(const std::string& path, std::string_view content) = 0;
    /// Opens a text file, created with mode 0600 when missing; none when that fails. The folder must exist.
    virtual std::unique_ptr<ITextStream> OpenText(const std::string& path, OpenMode mode) = 0;
    /// Creates a folder with its parents, mode 0700; false when that fails.
    virtual bool CreateFolder(const std::string& path) = 0;
    /// True when both paths name the same existing file, by whatever spelling or link.
    virtual bool IsSameFile(const std::string& left, const std::string& right) = 0;
    /// True for a regular file (no link) that bears the marks of a working copy of this user: his, and mode 0600.
    virtual bool IsOwnWorkingFile(const std::string& path) = 0;
    /// True while a process with this id lives.
    virtual bool ProcessLives(long long processId) = 0;
};

}

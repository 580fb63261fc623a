#pragma once

#include "platform/IFileSystem.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// The copies in the temporary folder that a run works on. They are deleted when this dies, and only they: what this
/// process did not create stays.
class WorkingCopies {
public:
    explicit WorkingCopies(IFileSystem& files) : files_(files) {}
    ~WorkingCopies();
    WorkingCopies(const WorkingCopies&) = delete;
    WorkingCopies& operator=(const WorkingCopies&) = delete;

    /// Copies a file into the temporary folder: under its own name without ".xml" + suffix + ".xml", or under its own
    /// name when the suffix is empty, unless a file of that name is there. Errors are passed over; the path is returned
    /// all the same.
    std::string MakeTempCopy(const std::string& source, const std::string& suffix);

    /// Deletes copies of the init file that processes left behind which live no longer. One that differs from the init
    /// file of now stays: it may be anybody's.
    void SweepLeftovers(const std::string& initFilepath);

    /// True for a copy that this process made.
    bool Owns(const std::string& path) const;

    /// Deletes what this process created so far. A file that cannot be deleted stays.
    void DeleteAll() noexcept;

private:
    bool IsLeftover(std::string_view name, std::string_view stem);
    bool IsOnlyACopy(const std::string& path, const std::string& initFilepath) const;

    IFileSystem& files_;
    std::vector<std::string> created_;
};

}

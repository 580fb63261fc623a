#include "shell/WorkingCopies.h"

#include "base/Text.h"
#include "platform/xml/XmlGuard.h"

#include <algorithm>
#include <charconv>
#include <exception>

namespace tarvex {

namespace {

constexpr std::string_view kExtension = ".xml";
constexpr long long kHighestProcessId = 4194304; // what is above names no process of this system
constexpr std::string_view kTemporarySave = "_TempSave_";

/// The file name without its extension, which always has the length of ".xml".
std::string StemOf(std::string_view path)
{
    std::string_view name = FileNameOf(path);
    name.remove_suffix(std::min(name.size(), kExtension.size()));
    return std::string(name);
}

bool CutSuffix(std::string_view& text, std::string_view suffix)
{
    if (!text.ends_with(suffix))
        return false;
    text.remove_suffix(suffix.size());
    return true;
}

}

WorkingCopies::~WorkingCopies() { DeleteAll(); }

std::string WorkingCopies::MakeTempCopy(const std::string& source, const std::string& suffix)
{
    const std::string name =
        suffix.empty() ? std::string(FileNameOf(source)) : StemOf(source).append(suffix).append(kExtension);
    std::string target = files_.TemporaryFolder() + "/" + name;
    if (suffix.empty() && files_.FileExists(target)) // a name without our process in it may be anybody's
        return target;
    try {
        if (files_.CopyToWorkingFile(source, target) && !Owns(target))
            created_.push_back(target);
    } catch (const std::exception&) {
        // Whoever opens the copy finds out.
    }
    return target;
}

void WorkingCopies::SweepLeftovers(const std::string& initFilepath)
{
    const std::string stem = StemOf(initFilepath);
    const std::string folder = files_.TemporaryFolder();
    for (const std::string& name : files_.ListFolder(folder)) {
        const std::string path = std::string(folder).append("/").append(name);
        if (IsLeftover(name, stem) && files_.IsOwnWorkingFile(path) && IsOnlyACopy(path, initFilepath))
            files_.Remove(path);
    }
}

/// The user may have given a file of his own such a name.
bool WorkingCopies::IsOnlyACopy(const std::string& path, const std::string& initFilepath) const
{
    if (StemOf(path).ends_with(kTemporarySave))
        return true;
    try {
        return files_.ReadWholeFile(path, kXmlMaxBytes) == files_.ReadWholeFile(initFilepath, kXmlMaxBytes);
    } catch (const std::exception&) {
        return false;
    }
}

bool WorkingCopies::Owns(const std::string& path) const
{
    return std::find(created_.begin(), created_.end(), path) != created_.end();
}

void WorkingCopies::DeleteAll() noexcept
{
    for (const std::string& path : created_)
        files_.Remove(path);
    created_.clear();
}

bool WorkingCopies::IsLeftover(std::string_view name, std::string_view stem)
{
    if (!name.starts_with(stem) || !CutSuffix(name, kExtension))
        return false;
    CutSuffix(name, kTemporarySave);
    const std::string_view digits = name.substr(std::min(stem.size(), name.size()));
    if (digits.empty() || digits.front() < '1' || digits.front() > '9')
        return false;
    long long processId = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), processId);
    return error == std::errc() && end == digits.data() + digits.size() && processId <= kHighestProcessId &&
           !files_.ProcessLives(processId);
}

}

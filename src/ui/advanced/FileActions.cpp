#include "ui/advanced/FileActions.h"

#include "shell/Document.h"

namespace tarvex {

namespace {

constexpr const char* kFilter = "XML (*.xml)|*.xml|All (*.*)|*.*";
constexpr const char* kExtension = "xml";

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

}

void FileActions::Open()
{
    board_.LeaveRealTime();
    const auto path = prompts_.AskOpenFile({"Open", folder_, "", kFilter, kExtension});
    if (!path || path->empty())
        return;
    OpenChosen(*path);
}

void FileActions::OpenChosen(const std::string& path)
{
    board_.LeaveRealTime();
    folder_ = FolderOf(path);
    OpenAtStart(path);
}

void FileActions::OpenRecent(const std::string& path)
{
    if (recent_.IsThere(path))
        return OpenChosen(path);
    recent_.Drop(path);
    prompts_.Tell("The file " + path + " is no longer there.");
}

void FileActions::OpenAtStart(const std::string& path)
{
    if (board_.OpenDataFile(path))
        recent_.Add(path);
}

bool FileActions::Save()
{
    if (board_.FileName().empty())
        return SaveAs();
    if (board_.IsModified())
        return Write(board_.FileName());
    statusLine_.DisplayStatusMessage("Nothing was edited since the file was opened or saved.");
    return true;
}

std::optional<std::string> FileActions::AskSaveName()
{
    auto path = prompts_.AskSaveFile({"Save As", folder_, board_.FileName(), kFilter, kExtension});
    if (!path || path->empty())
        return std::nullopt;
    if (document_.TestForApplicationReservedFilepath(*path))
        return path;
    prompts_.Tell(*path + " is a reserved complete filename. Please select another file.", "Reserved File Selected");
    return std::nullopt;
}

bool FileActions::SaveAs()
{
    const auto path = AskSaveName();
    return path && Write(*path);
}

bool FileActions::Write(const std::string& path)
{
    std::string failure;
    try {
        write_(path);
    } catch (const std::exception& error) {
        failure = error.what();
    }
    if (!failure.empty()) {
        prompts_.Tell("Error while saving file " + path + ". " + failure);
        return false;
    }
    folder_ = FolderOf(path);
    board_.Saved(path);
    recent_.Add(path);
    statusLine_.DisplayStatusMessage(path + " saved.");
    return true;
}

bool FileActions::ConfirmClose()
{
    if (!board_.IsModified() || !prompts_.Ask("Save " + board_.FileName() + " file before closing"))
        return true;
    return SaveAs();
}

}

#include "ui/advanced/FileActions.h"

#include "shell/Document.h"

namespace tarvex {

void FileActions::Open()
{
    board_.LeaveRealTime();
    if (const auto path = dialogs_.AskOpen())
        OpenChosen(*path);
}

void FileActions::OpenChosen(const std::string& path)
{
    board_.LeaveRealTime();
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
    dialogs_.Used(path);
    if (dialogs_.Allows(document_, path) && board_.MayDropEdits() && board_.OpenDataFile(path))
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

bool FileActions::SaveAs()
{
    const auto path = dialogs_.AskSave(document_, board_.FileName());
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
    dialogs_.Used(path);
    board_.Saved(path);
    recent_.Add(path);
    statusLine_.DisplayStatusMessage(path + (board_.LastReadIncomplete()
                                                 ? " saved. Not every register in it could be read from the board."
                                                 : " saved."));
    return true;
}

bool FileActions::ConfirmClose()
{
    if (!board_.IsModified() || !prompts_.Ask("Save " + board_.FileName() + " file before closing"))
        return true;
    return SaveAs();
}

}

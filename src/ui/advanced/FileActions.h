#pragma once

#include "platform/IUserPrompts.h"
#include "shell/DataFileDialogs.h"
#include "shell/RecentFiles.h"
#include "ui/advanced/BoardActions.h"

#include <functional>
#include <string>

namespace tarvex {

/// The user's data files in the main window: open, save, and the question before closing. The main window owns it.
class FileActions {
public:
    /// `write` writes the current settings to a path and raises when that fails.
    FileActions(Document& document, BoardActions& board, IUserPrompts& prompts, IStatusLine& statusLine,
                RecentFiles& recent, std::function<void(const std::string&)> write)
        : document_(document), board_(board), prompts_(prompts), statusLine_(statusLine), recent_(recent),
          dialogs_(prompts), write_(std::move(write))
    {}

    /// The folder in which the file dialog opens first.
    void StartFolder(std::string folder) { dialogs_.Folder(std::move(folder)); }
    void Open();
    /// Opens a file that the user chose without the dialog; the rest is as in Open.
    void OpenChosen(const std::string& path);
    /// Opens a file of the recent ones. One that is gone leaves them, and the user is told.
    void OpenRecent(const std::string& path);
    /// Opens the file of the command line.
    void OpenAtStart(const std::string& path);
    /// Writes to the current file when something was edited; asks for a name when there is none. False when not
    /// written.
    bool Save();
    /// False when the user cancelled or the file could not be written.
    bool SaveAs();
    /// Asks about unsaved edits; false when the window has to stay.
    bool ConfirmClose();

private:
    bool Write(const std::string& path);

    Document& document_;
    BoardActions& board_;
    IUserPrompts& prompts_;
    IStatusLine& statusLine_;
    RecentFiles& recent_;
    DataFileDialogs dialogs_;
    std::function<void(const std::string&)> write_;
};

}

#pragma once

#include "platform/IUserPrompts.h"

#include <memory>
#include <string>

namespace tarvex {

class HelpViewer;

/// The prompts as Qt dialogs, over the window that is active. The boxes have the object name "MessageBox", the other
/// dialogs "InputBox", "FileDialog", "DeviceBrowseDialog", "QueryProgress" and "HelpViewer". They can be answered also
/// while a sequence of transfers runs, and carry on a request to end the program that is made while they are shown.
class UserPrompts : public IUserPrompts {
public:
    /// `helpFile` is the path of Tarvex.hlp; it is opened when help is first asked for.
    explicit UserPrompts(std::string helpFile);
    ~UserPrompts() override;

    Answer ShowMessage(const MessageBoxRequest& request) override;
    std::optional<std::string> AskText(const std::string& question, const std::string& title,
                                       const std::string& proposal) override;
    std::optional<std::string> AskOpenFile(const FileDialogRequest& request) override;
    /// Asks before it gives the path of a file that exists.
    std::optional<std::string> AskSaveFile(const FileDialogRequest& request) override;
    std::optional<std::size_t> BrowseForDevice(const std::vector<std::string>& entries) override;
    std::unique_ptr<IQueryWindow> ShowQueryProgress() override;
    /// Over a dialog that waits for its answer, the help window has to be closed first.
    void ShowHelp(std::optional<std::int32_t> topic) override;
    void OpenInEditor(const std::string& path) override;
    void Beep() override;
    void SetBusyPointer(bool busy) override;

private:
    enum class HelpWindow { Beside, InFront };
    void OpenHelp(std::optional<std::int32_t> topic, HelpWindow where);
    bool LoadHelp();

    std::string helpFile_;
    std::unique_ptr<HelpViewer> helpViewer_;
    int busyPointers_ = 0;
};

}

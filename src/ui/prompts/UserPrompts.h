#pragma once

#include "platform/IUserPrompts.h"

#include <memory>
#include <string>

namespace tarvex {

class HelpViewer;

/// The prompts as Qt dialogs, over the window that is active. Every box has the object name "MessageBox".
class UserPrompts : public IUserPrompts {
public:
    /// `helpFile` is the path of Tarvex.hlp; it is opened when help is first asked for.
    explicit UserPrompts(std::string helpFile);
    ~UserPrompts() override;

    Answer ShowMessage(const MessageBoxRequest& request) override;
    std::optional<std::string> AskText(const std::string& question, const std::string& title,
                                       const std::string& proposal) override;
    std::optional<std::string> AskOpenFile(const FileDialogRequest& request) override;
    std::optional<std::string> AskSaveFile(const FileDialogRequest& request) override;
    std::optional<std::size_t> BrowseForDevice(const std::vector<std::string>& entries) override;
    void ShowHelp(std::optional<std::int32_t> topic) override;
    void OpenInEditor(const std::string& path) override;
    void Beep() override;
    void SetBusyPointer(bool busy) override;

private:
    std::string helpFile_;
    std::unique_ptr<HelpViewer> helpViewer_;
};

}

#pragma once

#include "platform/IUserPrompts.h"

namespace tarvex {

/// Answers every question by closing the box.
class ClosedPrompts : public IUserPrompts {
public:
    Answer ShowMessage(const MessageBoxRequest&) override { return Answer::Cancel; }
    std::optional<std::string> AskText(const std::string&, const std::string&, const std::string&) override
    {
        return std::nullopt;
    }
    std::optional<std::string> AskOpenFile(const FileDialogRequest&) override { return std::nullopt; }
    std::optional<std::string> AskSaveFile(const FileDialogRequest&) override { return std::nullopt; }
    std::optional<std::size_t> BrowseForDevice(const std::vector<std::string>&) override { return std::nullopt; }
    std::unique_ptr<IQueryWindow> ShowQueryProgress() override { return nullptr; }
    void ShowHelp(std::optional<std::int32_t>) override {}
    void OpenInEditor(const std::string&) override {}
    void Beep() override {}
    void SetBusyPointer(bool) override {}
};

}

#pragma once

#include "platform/IUserPrompts.h"

#include <optional>
#include <string>

namespace tarvex {

class Document;

/// Asks the user for data files, each time in the folder of the one before. The window whose files they are owns it.
class DataFileDialogs {
public:
    explicit DataFileDialogs(IUserPrompts& prompts) : prompts_(prompts) {}

    /// The folder in which the next dialog opens.
    void Folder(std::string folder) { folder_ = std::move(folder); }
    /// A file was opened or saved: the next dialog opens in its folder.
    void Used(const std::string& path);
    /// None when the user cancelled.
    std::optional<std::string> AskOpen(const std::string& proposal = {});
    /// None when the user cancelled or chose a path that is not allowed.
    std::optional<std::string> AskSave(Document& document, const std::string& proposal);
    /// Whether the path may be a data file. The init file may not, which the user is told.
    bool Allows(Document& document, const std::string& path);

private:
    IUserPrompts& prompts_;
    std::string folder_;
};

}

#include "ui/wizards/frame/WizardFiles.h"

#include "base/Error.h"
#include "config/DataFileSaving.h"
#include "shell/Document.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr std::size_t kNamesShown = 8; ///< of registers in a question, which has to fit the screen

}

WizardFiles::WizardFiles(IWizardFrameView& view, IWizardProduct& product, const WizardDescription& description,
                         const WizardServices& services)
    : view_(view), product_(product), description_(description), services_(services), dialogs_(services.prompts)
{}

std::optional<std::string> WizardFiles::AskOpenName()
{
    auto path = dialogs_.AskOpen(name_.empty() ? document_->CommandLineDataFile() : "");
    if (!path || !dialogs_.Allows(*document_, *path))
        return std::nullopt;
    dialogs_.Used(*path);
    return path;
}

bool WizardFiles::Save() { return name_.empty() ? SaveAs() : WriteTo(name_, ""); }

bool WizardFiles::SaveAs()
{
    const auto path = dialogs_.AskSave(*document_, name_);
    if (!path || !WriteTo(*path, ". Please try again with a different name."))
        return false;
    name_ = *path;
    dialogs_.Used(*path);
    view_.ShowTitle("Tarvex-" + name_);
    return true;
}

bool WizardFiles::WriteTo(const std::string& path, const std::string& failureEnd)
{
    view_.ShowMessage("Saving file " + path + " ...");
    bool failed = false;
    try {
        if (!WriteFile(path)) {
            view_.ShowMessage(path + " was not saved.");
            return false;
        }
    } catch (const Error&) {
        services_.errorLog.LogCurrentError();
        failed = true;
    }
    if (failed) {
        services_.prompts.Tell("Unable to save " + path + failureEnd);
        return false;
    }
    dirty_ = false;
    view_.ShowMessage(path + " saved.");
    product_.FileSaved();
    return true;
}

bool WizardFiles::WriteFile(const std::string& path)
{
    const TarvexData& initFile = *document_->initFile();
    const auto tree = initFile.Tree(); // made once for the steps of the save
    return SaveDataFile({services_.state, services_.files, services_.clock}, initFile, document_->controller(), path,
                        [&](TarvexData& file) {
                            if (!product_.AddToFile(file))
                                Raise(ObjectError(1), "Wizard::WriteFile",
                                      "The product's part of " + path + " could not be written");
                            return AgreesToUnread();
                        });
}

bool WizardFiles::AgreesToUnread()
{
    const auto unread = product_.Image().FindUnread();
    if (unread.empty())
        return true;
    std::string names;
    for (std::size_t i = 0; i < std::min(unread.size(), kNamesShown); ++i)
        names += "\n" + unread[i];
    if (unread.size() > kNamesShown)
        names += "\nand " + std::to_string(unread.size() - kNamesShown) + " more";
    return services_.prompts.AskBeforeLoss("These registers could not be read from the board:\n" + names +
                                               "\n\nThe file will hold what was last known of them. Save it anyway?",
                                           "Save");
}

bool WizardFiles::ConfirmClose()
{
    if (!dirty_ || !services_.prompts.Ask("Save " + name_ + " file before closing" + description_.closeQuestionEnd))
        return true;
    return description_.savesUnderOldNameOnClose ? Save() : SaveAs();
}

void WizardFiles::Opened(const std::string& path)
{
    name_ = path;
    view_.ShowTitle("Tarvex-" + path);
}

void WizardFiles::Drop()
{
    if (!name_.empty())
        view_.ShowTitle("Tarvex");
    name_.clear();
}

}

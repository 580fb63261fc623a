#include "ui/wizards/frame/WizardFiles.h"

#include "base/Error.h"
#include "config/TarvexData.h"
#include "shell/Document.h"

namespace tarvex {

namespace {

constexpr const char* kFilter = "XML (*.xml)|*.xml|All (*.*)|*.*";
constexpr const char* kExtension = "xml";

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

}

WizardFiles::WizardFiles(IWizardFrameView& view, IWizardProduct& product, const WizardDescription& description,
                         const WizardServices& services)
    : view_(view), product_(product), description_(description), services_(services)
{}

bool WizardFiles::IsAllowed(const std::string& path)
{
    if (document_->TestForApplicationReservedFilepath(path))
        return true;
    services_.prompts.Tell(path + " is a reserved complete filename. Please select another file.",
                           "Reserved File Selected");
    return false;
}

std::optional<std::string> WizardFiles::AskOpenName()
{
    const std::string proposal = name_.empty() ? document_->CommandLineDataFile() : "";
    auto path = services_.prompts.AskOpenFile({"Open", folder_, proposal, kFilter, kExtension});
    if (!path || path->empty() || !IsAllowed(*path))
        return std::nullopt;
    folder_ = FolderOf(*path);
    return path;
}

bool WizardFiles::Save() { return name_.empty() ? SaveAs() : WriteTo(name_, ""); }

bool WizardFiles::SaveAs()
{
    const auto path = services_.prompts.AskSaveFile({"Save As", folder_, name_, kFilter, kExtension});
    if (!path || path->empty() || !IsAllowed(*path))
        return false;
    if (!WriteTo(*path, ". Please try again with a different name."))
        return false;
    name_ = *path;
    folder_ = FolderOf(*path);
    view_.ShowTitle("Tarvex-" + name_);
    return true;
}

bool WizardFiles::WriteTo(const std::string& path, const std::string& failureEnd)
{
    view_.ShowMessage("Saving file " + path + " ...");
    bool written = false;
    try {
        WriteFile(path);
        written = true;
    } catch (const Error&) {
        services_.errorLog.LogCurrentError();
    }
    if (!written) {
        services_.prompts.Tell("Unable to save " + path + failureEnd);
        return false;
    }
    dirty_ = false;
    view_.ShowMessage(path + " saved.");
    product_.FileSaved();
    return true;
}

void WizardFiles::WriteFile(const std::string& path)
{
    const TarvexData& initFile = *document_->initFile();
    const auto tree = initFile.Tree(); // made once for the steps below
    TarvexData file(services_.state, services_.files);
    file.InitToWrite(initFile, path, services_.clock);
    file.AddProduct(initFile, document_->controller().deviceName());
    if (!product_.AddToFile(file))
        Raise(ObjectError(1), "Wizard::WriteFile", "The product's part of " + path + " could not be written");
    file.WriteSimpleData(document_->controller());
    file.Commit(path);
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

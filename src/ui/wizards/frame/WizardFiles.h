#pragma once

#include "shell/DataFileDialogs.h"
#include "ui/wizards/frame/IWizardHost.h"
#include "ui/wizards/frame/IWizardProduct.h"

#include <optional>
#include <string>

namespace tarvex {

class Document;

/// The data file of a wizard: its name in the caption, save, the question before closing, and the choice of a file to
/// open. The frame owns it. It never speaks to hardware.
class WizardFiles {
public:
    WizardFiles(IWizardFrameView& view, IWizardProduct& product, const WizardDescription& description,
                const WizardServices& services);

    void Attach(Document* document) { document_ = document; }

    /// Lets the user choose a file to open; none when he cancelled or chose a reserved one.
    std::optional<std::string> AskOpenName();
    /// Writes to the data file in use; asks for a name when there is none. False when not written.
    bool Save();
    /// False when the user cancelled or the file could not be written.
    bool SaveAs();
    /// Asks about unsaved settings; false when the window has to stay.
    bool ConfirmClose();

    /// The controller has opened a data file.
    void Opened(const std::string& path);
    /// No data file is in use any more.
    void Drop();
    const std::string& Name() const { return name_; }
    /// The board was written to.
    void MarkDirty() { dirty_ = true; }

private:
    bool WriteTo(const std::string& path, const std::string& failureEnd);
    /// False when the user does not want a file with registers that could not be read.
    bool WriteFile(const std::string& path);
    bool AgreesToUnread();

    IWizardFrameView& view_;
    IWizardProduct& product_;
    const WizardDescription& description_;
    const WizardServices& services_;
    Document* document_ = nullptr;
    std::string name_;
    DataFileDialogs dialogs_;
    bool dirty_ = false; ///< the board was written to since the last save
};

}

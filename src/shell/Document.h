#pragma once

#include "base/Event.h"
#include "base/ExitRequest.h"
#include "base/IErrorLog.h"
#include "base/ProgramState.h"
#include "comm/api/IDevice.h"
#include "config/TarvexController.h"
#include "config/TarvexData.h"
#include "platform/IFileSystem.h"
#include "platform/IUserPrompts.h"
#include "shell/CommandLine.h"
#include "shell/IMainView.h"
#include "shell/IWizardView.h"
#include "shell/PacketLog.h"
#include "shell/Preferences.h"
#include "shell/WorkingCopies.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

struct WizardStart;

/// What the document is built on. Main fills it; the makers are the only way in which the document gets at concrete
/// links and windows, by link name and by wizard kind.
struct DocumentServices {
    ProgramState& state;
    IFileSystem& files;
    IErrorLog& errorLog;
    PacketLog& packetLog;
    IUserPrompts& prompts;
    Preferences& preferences;
    std::map<std::string, std::function<std::shared_ptr<IDevice>()>> links;
    std::map<WizardKind, std::function<std::unique_ptr<IWizardView>()>> wizards;
    /// Runs the self-tests into the named report file; empty where the program has none.
    std::function<void(const std::string&)> selfTest;
    std::string commandLine;
};

/// The application object. It owns, for the whole run, the controller, the link in use, the init-file model, the wizard
/// windows and the working copies; views go through it to switch links, to open and close one another and to refresh
/// each other. It speaks to hardware only when it switches links.
class Document {
public:
    /// Looks for the init file; may end the program with code 2.
    explicit Document(DocumentServices services);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// After a new device has been put in place.
    Event<Document, const std::shared_ptr<IDevice>&> CommLinkChanged;

    const std::string& initFilepath() const { return initFilepath_; }
    const std::shared_ptr<TarvexData>& initFile() const { return initFile_; }
    const std::string& TargetSaveFileName() const { return targetSaveFileName_; }
    /// The data file that the command line named, as spelt there; empty when it named none.
    const std::string& CommandLineDataFile() const { return commandLine_.dataFile; }
    IWizardView* CurrentWizForm() const { return currentWizard_; }
    void CurrentWizForm(IWizardView* wizard) { currentWizard_ = wizard; }
    /// Raises 5 before Run made it and after the self-test dropped it.
    TarvexController& controller();
    /// The link in use, or none.
    const std::shared_ptr<IDevice>& device() const { return device_; }
    /// True when the program can make a link of this name.
    bool HasLink(const std::string& name) const { return services_.links.contains(name); }
    /// True when the command line asked for demo mode, in which every link is the demo board.
    bool IsDemoMode() const { return commandLine_.demo; }

    /// Reads the init file, acts on the command line, selects the demo link and shows the main window or a wizard. May
    /// end the program (see the exit codes).
    void Run(IMainView& mainView);
    /// Tells the main window and the wizard in use that the board is gone.
    void NotifyCommFailure(const std::string& text);
    /// Tells all other views of a change; `sender` is none for the main window itself.
    void UpdateAllViews(const IWizardView* sender, std::int32_t kind, const std::string& name);
    bool IsMainViewVisible() const { return mainView_ && mainView_->IsViewVisible(); }
    /// Shows in the main window what the registers hold, after transfers of which no change tells.
    void ShowRegisterValues()
    {
        if (mainView_)
            mainView_->ShowRegisterValues();
    }
    /// Makes a connector of an enclosure the target of the main window, too.
    void ShowTarget(std::int32_t address, std::int16_t connector);
    /// Shows the view of a product, or with "AdvancedForm" the main window beside the wizard `current`. False when
    /// nothing was shown.
    bool OpenView(const std::string& product, IWizardView* current);
    /// Hides the main window or the Vexlon wizard, whichever the product is shown in.
    void CloseView(const std::string& product);
    /// Asks about unsaved edits in the main window, which ends with a wizard; false when the user wants it to stay.
    bool ConfirmCloseOfMainView() { return !mainView_ || mainView_->ConfirmClose(); }
    /// Asks before what was edited in the main window, and neither loaded nor saved, is given up; false for no.
    bool MayDropEdits() { return !mainView_ || mainView_->MayDropEdits(); }
    /// True when a wizard window exists, shown or hidden.
    bool IsWizardOpen() const { return !wizards_.empty(); }
    /// Disconnects the link in use and puts another one in its place. The link's own name and unknown names change
    /// nothing; "Ethernet" and "TCP_IP" leave no device, of which no event tells.
    void SelectCommLink(const std::string& name);
    /// False when the path is the init file itself, by whatever spelling.
    bool TestForApplicationReservedFilepath(const std::string& path);

private:
    void OpenPacketLog();
    void ReadInitFile();
    void LoadInitFileCopy();
    [[noreturn]] void RefuseInitFile(std::string_view reason);
    void ProcessCommandLineModes();
    void RunSelfTest();
    void RunBatch();
    void LogPacketHeader();
    void ChooseWorkingFile();
    void ShowMainView();
    void StartWizard();
    void StartWizard(const WizardStart& start);
    [[noreturn]] void FailWizard(const std::string& reason);
    std::string MakeInitFileCopyForSaving();

    IWizardView* MakeWizard(WizardKind kind);
    IWizardView* FindWizard(WizardKind kind) const;
    void UnloadWizard(const IWizardView* wizard);
    bool OpenMainViewBeside(IWizardView* current);
    bool OpenVexlonWizard(const std::string& product);
    bool MakeVexlonWizard(const std::string& product);
    bool BindVexlonWizard(IWizardView& wizard, const std::string& product);
    void ConnectDevice();
    void ReleaseDevice();

    DocumentServices services_;
    CommandLine commandLine_;
    WorkingCopies copies_;
    std::string initFilepath_;
    std::string targetSaveFileName_;
    std::shared_ptr<TarvexData> initFile_;
    std::unique_ptr<TarvexController> controller_;
    std::shared_ptr<IDevice> device_;
    IMainView* mainView_ = nullptr;
    std::map<WizardKind, std::unique_ptr<IWizardView>> wizards_;
    /// Unloaded wizards. One of them may have asked for its own end and is then still at work.
    std::vector<std::unique_ptr<IWizardView>> retiredWizards_;
    IWizardView* currentWizard_ = nullptr;
};

}

#include "ui/advanced/AdvancedForm.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "comm/Links.h"
#include "comm/dialogs/SerialSettings.h"
#include "config/DataFileSaving.h"
#include "shell/Document.h"
#include "ui/advanced/GridPanel.h"
#include "ui/advanced/VersionDlg.h"
#include "ui/common/Guarded.h"
#include "ui/common/ModalRun.h"
#include "ui/common/WindowTools.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QUrl>

#include <algorithm>

namespace tarvex {

namespace {

/// The file that is dragged; empty for several of them, and for anything else.
std::string DraggedFile(const QDropEvent& event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? FromQt(urls.front().toLocalFile()) : std::string();
}

}

AdvancedForm::AdvancedForm(AdvancedFormServices services)
    : services_(services), recentFiles_(services.settings, services.files)
{
    setObjectName("AdvancedForm");
    StatusBarRefreshTimer.setObjectName("StatusBarRefreshTimer");
    CommunicationInterval.setObjectName("CommunicationInterval");
    menus_ = std::make_unique<MainMenus>(*menuBar(), services_.busy, MenuHandlers());
    BuildControls();
    BuildStatusBar();
    ConnectControls();
    setAcceptDrops(true);
    recentFilesChanged_ = recentFiles_.Changed.Subscribe([this] { menus_->ShowRecentFiles(recentFiles_.Paths()); });
    busyChanged_ = services_.busy.Changed.Subscribe([this](bool busy) { menus_->Enable(!busy); });
}

AdvancedForm::~AdvancedForm() = default;

MainMenuHandlers AdvancedForm::MenuHandlers()
{
    MainMenuHandlers handlers;
    handlers.open = [this] { files_->Open(); };
    handlers.save = [this] { files_->Save(); };
    handlers.saveAs = [this] { files_->SaveAs(); };
    handlers.quit = [this] { Quit(); };
    handlers.recentFile = [this](const std::string& path) { files_->OpenRecent(path); };
    handlers.product = [this](const std::string& product) { board_->SelectProduct(product); };
    handlers.link = [this](const std::string& link) { board_->SelectLink(link); };
    handlers.autoLoadFileOpen = [this](bool on) { services_.preferences.autoLoadFileOpen = on; };
    handlers.autoConnect = [this](bool on) { services_.preferences.autoConnect = on; };
    handlers.serialSettings = [this] { board_->ChangeSerialSettings(); };
    handlers.helpContents = [this] { services_.prompts.ShowHelp(std::nullopt); };
    handlers.hotKeys = [this] { services_.prompts.ShowHelp(kHotKeysTopic); };
    handlers.version = [this] { ShowVersion(); };
    return handlers;
}

void AdvancedForm::InitialiseState()
{
    ShowTitle("Tarvex");
    CHK_RealTime->setChecked(false);
}

void AdvancedForm::ShowNetworkAddress(bool visible)
{
    for (QWidget* control :
         std::initializer_list<QWidget*>{LBL_ZorbusID, TXT_ZorbusID, TXT_ChannelLabel, TXT_ChannelNum})
        control->setVisible(visible);
}

void AdvancedForm::ShowSerialSettings(bool visible) { menus_->ShowEntry("SerialPortSettings", visible); }

void AdvancedForm::LayOut()
{
    // The longest of the usual status texts is to be read whole.
    const int textWidth = fontMetrics().horizontalAdvance(
        "Vexlon-Fx supports multiple communication links.  Select one on the Communication menu to connect.   ");
    resize(sizeHint().expandedTo(QSize(textWidth, 0)));
}

void AdvancedForm::SetStatusRefreshInterval(std::int32_t milliseconds)
{
    StatusBarRefreshTimer.setInterval(milliseconds);
    StatusBarRefreshTimer.setSingleShot(true);
}

void AdvancedForm::HookDeviceChanges()
{
    services_.deviceChanges.Watch([this] { DeviceRemoved("A USB device has been removed from the system."); });
}

void AdvancedForm::ApplyPreferences()
{
    const Preferences& preferences = services_.preferences;
    menus_->Check("AutoConnect", preferences.autoConnect);
    menus_->Check("AutoLoadFileOpen", preferences.autoLoadFileOpen);
    ShowTarget(preferences.lastZorbusId, preferences.lastChannel);
    recentFiles_.Load();
}

void AdvancedForm::EnableTransfers(bool enabled)
{
    BTN_Read->setEnabled(enabled);
    BTN_Load->setEnabled(enabled);
}

void AdvancedForm::PrepareFileDialog(const std::string& folder, const std::string&)
{
    const bool isForSaving = QFileInfo(ToQt(folder)).isWritable(); // not where a package has put the program
    fileFolder_ = isForSaving ? folder : FromQt(QDir::homePath());
}

void AdvancedForm::Attach(Document* document)
{
    document_ = document;
    if (!document) {
        files_.reset();
        board_.reset();
    }
}

BoardActionServices AdvancedForm::ActionServices()
{
    return {services_.state,
            services_.preferences,
            services_.prompts,
            services_.errorLog,
            services_.wait,
            *this,
            *this,
            [this] { return std::make_shared<BusyGuard>(services_.busy); },
            [this](const CommSettings& settings) { return ChooseSerialSettings(settings); }};
}

void AdvancedForm::Init(IConfigController&, std::shared_ptr<IDevice>)
{
    IRegisterView& view = *this;
    board_ = std::make_unique<BoardActions>(*document_, view, ActionServices());
    files_ = std::make_unique<FileActions>(*document_, *board_, services_.prompts, *this, recentFiles_,
                                           [this](const std::string& path) { WriteDataFile(path); });
    files_->StartFolder(fileFolder_);
    edited_ = grid_->Edited.Subscribe(
        [this](const std::string& name, std::int32_t value) { board_->EditRegister(name, value); });
    readRequested_ =
        grid_->ReadRequested.Subscribe([this](const std::string& name) { board_->ReadSingleRegister(name); });
}

void AdvancedForm::ShowView()
{
    show();
    ShowRegisterValues(); // a wizard transfers registers while this window is hidden
}

void AdvancedForm::HideView() { hide(); }

void AdvancedForm::FocusView()
{
    raise();
    activateWindow();
}

void AdvancedForm::OpenDataFile(const std::string& path) { files_->OpenAtStart(path); }

bool AdvancedForm::ConfirmClose() { return !files_ || files_->ConfirmClose(); }

bool AdvancedForm::MayDropEdits() { return !board_ || board_->MayDropEdits(); }

void AdvancedForm::UpdateUI(std::int32_t kind, const std::string& name) { board_->ShowChange(kind, name); }

void AdvancedForm::ShowRegisterValues()
{
    if (board_ && isVisible())
        board_->ShowValues();
}

void AdvancedForm::CommFailure(const std::string&) { DisplayStatusMessage("Comm Failure recieved in Advanced Form"); }

void AdvancedForm::DeviceRemoved(const std::string& text)
{
    services_.busy.WhenIdle("DeviceRemoved", [this, text] {
        if (board_)
            board_->DeviceRemoved(text);
    });
}

void AdvancedForm::LockRealTime()
{
    CHK_RealTime->setChecked(true);
    CHK_RealTime->setEnabled(false);
}

void AdvancedForm::SetAsSecondaryView(bool secondary)
{
    board_->SetAsSecondaryView(secondary);
    for (QLineEdit* field : {TXT_ZorbusID, TXT_ChannelNum}) { // the wizard adjusts the connector that they show
        field->setReadOnly(secondary);
        field->setToolTip(secondary ? "Chosen in the window of the product" : "");
    }
}

void AdvancedForm::SetPrefAutoConnect(bool on)
{
    services_.preferences.autoConnect = on;
    menus_->Check("AutoConnect", on);
}

void AdvancedForm::SetPrefAutoLoadOnOpen(bool on)
{
    services_.preferences.autoLoadFileOpen = on;
    menus_->Check("AutoLoadFileOpen", on);
}

bool AdvancedForm::GetAppPreference(const std::string& name) const
{
    return tarvex::GetAppPreference(services_.preferences, name);
}

void AdvancedForm::DisplayStatusMessage(const std::string& text)
{
    message_->setText(ToQt(text));
    message_->setToolTip(ToQt(text));
    StatusBarRefreshTimer.start();
}

std::string AdvancedForm::SelectedProductName() const { return board_ ? board_->SelectedProductName() : std::string(); }

void AdvancedForm::SetZorbusID(std::int32_t value) { TXT_ZorbusID->setText(ToQt(HexText(value))); }

void AdvancedForm::SetChannelNum(std::int16_t number) { TXT_ChannelNum->setText(QString::number(number)); }

void AdvancedForm::ShowTarget(const std::string& address, const std::string& connector)
{
    TXT_ZorbusID->setText(ToQt(address));
    TXT_ChannelNum->setText(ToQt(connector));
}

std::string AdvancedForm::TargetAddress() const { return FromQt(TXT_ZorbusID->text()); }

std::string AdvancedForm::TargetConnector() const { return FromQt(TXT_ChannelNum->text()); }

std::optional<CommSettings> AdvancedForm::ChooseSerialSettings(const CommSettings& settings)
{
    const OwnedDialog<SerialSettings> dialog("SerialSettings", services_.prompts, this);
    std::optional<CommSettings> chosen;
    const Subscription settingsChanged =
        dialog->CommSettingsChanged.Subscribe([&chosen](const CommSettings& changed) { chosen = changed; });
    dialog->SetCommSettings(settings);
    RunModal(*dialog);
    return chosen;
}

void AdvancedForm::FillGrid() { grid_->Fill(document_->controller()); }

void AdvancedForm::ShowValue(std::int16_t position) { grid_->ShowValue(document_->controller(), position); }

void AdvancedForm::ShowAllValues() { grid_->ShowAllValues(document_->controller()); }

void AdvancedForm::ShowMarks() { grid_->ShowMarks(document_->controller()); }

bool AdvancedForm::RealTime() const { return CHK_RealTime->isChecked(); }

void AdvancedForm::RealTime(bool on)
{
    if (CHK_RealTime->isEnabled()) // beside a wizard it is locked: every edit is written at once
        CHK_RealTime->setChecked(on);
}

void AdvancedForm::ShowRules(const ProductRules& rules)
{
    ShowNetworkAddress(rules.networkAddress);
    ShowSerialSettings(rules.serialSettings && document_->HasLink(kSerialDeviceType));
}

void AdvancedForm::ShowTitle(const std::string& title) { setWindowTitle(ToQt(title)); }

void AdvancedForm::ShowProducts(const std::vector<MenuChoice>& products) { menus_->ShowProducts(products); }

void AdvancedForm::ShowLinks(const std::vector<MenuChoice>& links) { menus_->ShowLinks(links); }

void AdvancedForm::IProgress_SetRange(std::int32_t steps, std::int32_t start)
{
    ProgressBar1->setRange(0, std::max(steps, 1));
    ProgressBar1->setValue(start);
}

void AdvancedForm::IProgress_TickProgress(std::int32_t steps)
{
    ProgressBar1->setValue(std::min(ProgressBar1->value() + steps, ProgressBar1->maximum()));
}

void AdvancedForm::IProgress_Show(bool visible) { ProgressBar1->setVisible(visible); }

void AdvancedForm::WriteDataFile(const std::string& path)
{
    try {
        SaveDataFile({services_.state, services_.files, services_.clock}, *document_->initFile(),
                     document_->controller(), path);
    } catch (const std::exception&) {
        services_.errorLog.LogCurrentError();
        throw;
    }
}

void AdvancedForm::ShowVersion()
{
    const auto device = document_->device();
    services_.state.firmwareVersionText = device && device->IsConnected() ? device->FirmwareVersion() : "";
    VersionDlg dialog(services_.state, this);
    ThroughQt([&] { return dialog.exec(); });
}

void AdvancedForm::Quit()
{
    if (!ConfirmClose())
        return;
    IWizardView* wizard = document_ ? document_->CurrentWizForm() : nullptr;
    if (wizard && !wizard->ConfirmClose())
        return;
    ExitApplication(0);
}

bool AdvancedForm::CloseByUser()
{
    if (services_.busy.IsBusy())
        return false;
    if (document_ && document_->IsWizardOpen()) {
        hide();
        return false;
    }
    return ConfirmClose();
}

void AdvancedForm::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Guarded([this] {
        if (!CloseByUser())
            return;
        hide();
        Unload();
        ExitApplication(0, this);
    });
}

void AdvancedForm::dragEnterEvent(QDragEnterEvent* event)
{
    if (files_ && !services_.busy.IsBusy() && !DraggedFile(*event).empty())
        event->acceptProposedAction();
}

void AdvancedForm::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    // Later: the program that the file comes from waits until this returns.
    QTimer::singleShot(0, this, [this, path = DraggedFile(*event)] {
        Guarded([&] {
            if (files_ && !services_.busy.IsBusy())
                files_->OpenChosen(path);
        });
    });
}

void AdvancedForm::Unload()
{
    Preferences& preferences = services_.preferences;
    preferences.lastZorbusId = FromQt(TXT_ZorbusID->text());
    preferences.lastChannel = FromQt(TXT_ChannelNum->text());
    if (!SavePreferences(services_.settings, preferences))
        services_.errorLog.LogError("The preferences could not be saved", ObjectError(1), "AdvancedForm::Unload");
}

}

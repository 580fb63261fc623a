#pragma once

#include "base/IErrorLog.h"
#include "base/ProgramState.h"
#include "platform/IClock.h"
#include "platform/IDeviceChanges.h"
#include "platform/IFileSystem.h"
#include "platform/ISettingsStore.h"
#include "platform/IUserPrompts.h"
#include "platform/IWait.h"
#include "shell/IMainView.h"
#include "shell/Preferences.h"
#include "shell/RecentFiles.h"
#include "ui/advanced/BoardActions.h"
#include "ui/advanced/FileActions.h"
#include "ui/advanced/IRegisterView.h"
#include "ui/advanced/MainMenus.h"
#include "ui/common/BusyState.h"

#include <QMainWindow>
#include <QTimer>

#include <memory>
#include <optional>
#include <string>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace tarvex {

class GridPanel;

/// Help topic of the keys that work in the windows.
inline constexpr std::int32_t kHotKeysTopic = 3014;

/// What the main window is built on; main owns all of it.
struct AdvancedFormServices {
    ProgramState& state;
    Preferences& preferences;
    ISettingsStore& settings;
    IFileSystem& files;
    IClock& clock;
    IUserPrompts& prompts;
    IErrorLog& errorLog;
    IWait& wait;
    BusyState& busy;
    IDeviceChanges& deviceChanges;
};

/// The main window: every register of one board, with the menus and buttons to choose the board, read it and load it.
/// It builds widgets, forwards input to its actions and shows what they say. Main owns it; it outlives the document.
class AdvancedForm : public QMainWindow, public IMainView, private IRegisterView {
    Q_OBJECT
public:
    explicit AdvancedForm(AdvancedFormServices services);
    ~AdvancedForm() override;

    // Steps of start-up.
    void InitialiseState() override;
    void ShowNetworkAddress(bool visible) override;
    void ShowSerialSettings(bool visible) override;
    void LayOut() override;
    void SetStatusRefreshInterval(std::int32_t milliseconds) override;
    void HookDeviceChanges() override;
    void ApplyPreferences() override;
    void EnableTransfers(bool enabled) override;
    void PrepareFileDialog(const std::string& folder, const std::string& helpFile) override;
    void Attach(Document* document) override;

    void Init(IConfigController& controller, std::shared_ptr<IDevice> device) override;
    bool IsViewVisible() const override { return isVisible(); }
    void ShowView() override;
    void HideView() override;
    void FocusView() override;
    void OpenDataFile(const std::string& path) override;
    bool ConfirmClose() override;
    bool MayDropEdits() override;
    void UpdateUI(std::int32_t kind, const std::string& name) override;
    void ShowRegisterValues() override;
    void CommFailure(const std::string& text) override;
    void LockRealTime() override;
    void SetAsSecondaryView(bool secondary) override;
    void SetPrefAutoConnect(bool on) override;
    void DisplayStatusMessage(const std::string& text) override;

    /// Caption of the checked product, or empty.
    std::string SelectedProductName() const;
    /// A device has left the system; acts only on the board that is connected over USB.
    void DeviceRemoved(const std::string& text);
    /// "AutoConnect" or "AutoLoadFileOpen"; raises 402 for any other name.
    bool GetAppPreference(const std::string& name) const;
    void SetPrefAutoLoadOnOpen(bool on);
    void SetZorbusID(std::int32_t value) override;
    void SetChannelNum(std::int16_t number) override;
    /// Ends the use of the window: the preferences are saved, once.
    void Unload();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // IRegisterView
    void FillGrid() override;
    void ShowValue(std::int16_t position) override;
    void ShowAllValues() override;
    void ShowMarks() override;
    bool RealTime() const override;
    void RealTime(bool on) override;
    void ShowRules(const ProductRules& rules) override;
    void ShowTitle(const std::string& title) override;
    void ShowProducts(const std::vector<MenuChoice>& products) override;
    void ShowLinks(const std::vector<MenuChoice>& links) override;
    void ShowTarget(const std::string& address, const std::string& connector) override;
    std::string TargetAddress() const override;
    std::string TargetConnector() const override;

    // IProgress
    void IProgress_SetRange(std::int32_t steps, std::int32_t start) override;
    void IProgress_TickProgress(std::int32_t steps) override;
    void IProgress_Show(bool visible) override;

    MainMenuHandlers MenuHandlers();
    void BuildControls();
    void BuildStatusBar();
    void ConnectControls();
    BoardActionServices ActionServices();
    std::optional<CommSettings> ChooseSerialSettings(const CommSettings& settings);
    void WriteDataFile(const std::string& path);
    void ShowVersion();
    void Quit();
    bool CloseByUser();

    AdvancedFormServices services_;
    std::unique_ptr<MainMenus> menus_;
    GridPanel* grid_ = nullptr;
    QLabel* LBL_ZorbusID = nullptr;
    QLineEdit* TXT_ZorbusID = nullptr;
    QLabel* TXT_ChannelLabel = nullptr;
    QLineEdit* TXT_ChannelNum = nullptr;
    QCheckBox* CHK_RealTime = nullptr;
    QPushButton* BTN_Read = nullptr;
    QPushButton* BTN_Load = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    QLabel* message_ = nullptr;
    QTimer StatusBarRefreshTimer;
    /// Stands still. An enclosure speaks only when it is asked, which holds up the window and everybody else on the
    /// line; so a lost link is noticed by the next transfer, and not by asking all the time.
    QTimer CommunicationInterval;

    Document* document_ = nullptr;
    std::string fileFolder_;
    RecentFiles recentFiles_;
    std::unique_ptr<BoardActions> board_;
    std::unique_ptr<FileActions> files_;
    Subscription busyChanged_;
    Subscription recentFilesChanged_;
    Subscription edited_;
    Subscription readRequested_;
};

}

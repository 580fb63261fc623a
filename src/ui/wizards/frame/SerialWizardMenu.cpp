#include "ui/wizards/frame/SerialWizardMenu.h"

#include "base/Error.h"
#include "comm/DemoDevice.h"
#include "comm/SerialZorbus.h"
#include "shell/Document.h"
#include "ui/wizards/frame/ISerialWizardDialogs.h"
#include "ui/wizards/frame/IWizardHost.h"

#include <utility>

namespace tarvex {

namespace {

constexpr const char* kSettings = "SerialPortSettings";
constexpr const char* kPort = "Enable_DisableCOM";
constexpr const char* kLogging = "StartLogging";
constexpr const char* kEnable = "&Enable COM";
constexpr const char* kDisable = "&Disable COM";

}

SerialWizardMenu::SerialWizardMenu(CommSettings& settings, ISerialWizardDialogs& dialogs,
                                   std::function<void()> settingsTaken)
    : settings_(settings), dialogs_(dialogs), settingsTaken_(std::move(settingsTaken))
{}

MenuEntry SerialWizardMenu::SettingsEntry(const std::string& caption)
{
    return {kSettings, caption, [this] { SerialPortSettings_Click(); }};
}

MenuEntry SerialWizardMenu::PortEntry(const std::string& caption)
{
    return {kPort, caption, [this] { Enable_DisableCOM_Click(); }};
}

MenuEntry SerialWizardMenu::LoggingEntry(const std::string& caption)
{
    return {kLogging, caption, [this] { StartLogging_Click(); }, true};
}

void SerialWizardMenu::DeviceBound(const std::shared_ptr<IDevice>& device)
{
    subscriptions_.clear();
    auto* link = dynamic_cast<SerialZorbus*>(device.get());
    if (!link)
        return;
    const auto port = [link] { return std::int32_t{link->Settings().comPort}; };
    subscriptions_.push_back(link->Connected.Subscribe([=, this](std::int32_t) { ehSerialZorbus_Connected(port()); }));
    subscriptions_.push_back(
        link->Disconnected.Subscribe([=, this](std::int32_t) { ehSerialZorbus_Disconnected(port()); }));
    subscriptions_.push_back(link->SerialSettingChanged.Subscribe(
        [this](const CommSettings& settings) { ehSerialZorbus_SerialSettingChanged(settings); }));
}

void SerialWizardMenu::MenusEnabled(bool)
{
    if (SerialZorbus* link = Link()) // a board that answers again is connected without an event
        ShowPort(link->IsConnected());
}

SerialZorbus* SerialWizardMenu::Link() const
{
    return dynamic_cast<SerialZorbus*>(host_->TheDocument().device().get());
}

void SerialWizardMenu::HandOverSettings()
{
    SerialZorbus* link = Link();
    if (!link || settings_.kind != kSerialPortKind)
        return;
    const auto busy = host_->Services().beginBusy(); // the port may have to rest first
    link->SetCommParameters(settings_);
}

bool SerialWizardMenu::AskToRetry()
{
    retries_ = true;
    dialogs_.ShowNoCommHelp(
        settings_, [this](const CommSettings& settings) { m_commHelpDlg_SettingsChanged(settings); },
        [this] { m_commHelpDlg_UserCancelled(); });
    return retries_;
}

void SerialWizardMenu::SerialPortSettings_Click()
{
    asksForSettings_ = true;
    while (std::exchange(asksForSettings_, false))
        dialogs_.ShowSerialSettings(
            settings_, [this](const CommSettings& settings) { m_serialDlg_CommSettingsChanged(settings); },
            [this] { m_serialDlg_UserCancelled(); });
}

void SerialWizardMenu::Enable_DisableCOM_Click()
{
    IDevice& device = host_->Device();
    const std::string caption = host_->View().EntryCaption(kPort);
    if (caption.find(kDisable) != std::string::npos && device.IsConnected()) {
        const auto busy = host_->Services().beginBusy();
        device.Disconnect();
    } else if (caption.find(kEnable) != std::string::npos && !device.IsConnected()) {
        if (Connect()) {
            if (host_->CheckConnection())
                host_->SelectAgain(); // it may have been switched off meanwhile
        } else {
            ShowPort(false);
            host_->View().BlockEntry(kSettings, false); // it may be the wrong port
            host_->Services().prompts.Tell("Unable to connect to COM" + std::to_string(settings_.comPort));
        }
    }
}

void SerialWizardMenu::StartLogging_Click()
{
    const WizardServices& services = host_->Services();
    SerialZorbus* link = Link();
    if (!link)
        services.prompts.Tell(host_->Device().DeviceType() == kDemoDeviceType
                                  ? "Logging not supported in demo mode."
                                  : "Logging not supported for unintialized ehSerialZorbus");
    else if (link->StartLogging(services.state.programFolder) || // which a package may have made,
             link->StartLogging(services.state.rootFolder))      // for root alone to write in
        host_->View().CheckEntry(kLogging, true);
    else
        services.prompts.Tell("Tried but failed to start logging on " +
                              (link->IsConnected() ? link->productName() : host_->Controller().deviceName()));
}

bool SerialWizardMenu::Connect()
{
    const auto busy = host_->Services().beginBusy();
    try {
        IConfigController& controller = host_->Controller();
        return host_->Device().connect(controller.pid(), controller.vid()) == 1;
    } catch (const Error&) {
        host_->Services().errorLog.LogCurrentError();
        return false;
    }
}

bool SerialWizardMenu::Answers()
{
    if (!Connect())
        return false;
    const auto busy = host_->Services().beginBusy();
    return host_->Device().VerifyCommunications(0, 0);
}

void SerialWizardMenu::ShowPort(bool connected)
{
    host_->View().CaptionEntry(kPort, connected ? kDisable : kEnable);
    host_->View().EnableEntry(kSettings, !connected);
}

void SerialWizardMenu::ehSerialZorbus_Connected(std::int32_t port)
{
    host_->Say("Serial port connected on COM " + std::to_string(port));
    ShowPort(true);
}

void SerialWizardMenu::ehSerialZorbus_Disconnected(std::int32_t)
{
    ShowPort(false);
    host_->View().ShowConnection(host_->PicturePath("brokenlink_on_grey.jpg"), "No connection");
}

void SerialWizardMenu::ehSerialZorbus_SerialSettingChanged(const CommSettings& settings) { settings_ = settings; }

void SerialWizardMenu::m_serialDlg_CommSettingsChanged(const CommSettings& settings)
{
    settings_ = settings;
    HandOverSettings();
    if (settingsTaken_)
        settingsTaken_();
    if (Answers() && host_->CheckConnection()) {
        host_->SelectAgain();
        return;
    }
    host_->EnterFailureState();
    asksForSettings_ = host_->Services().prompts.Ask(
        "Unable to communicate to hardware. Do you want to continue to change the communication settings?");
    if (!asksForSettings_)
        host_->SelectAgain();
}

void SerialWizardMenu::m_serialDlg_UserCancelled() { asksForSettings_ = false; }

void SerialWizardMenu::m_commHelpDlg_SettingsChanged(const CommSettings& settings)
{
    settings_ = settings;
    HandOverSettings();
}

void SerialWizardMenu::m_commHelpDlg_UserCancelled() { retries_ = false; }

}

#pragma once

#include "base/Event.h"
#include "comm/api/IDevice.h"
#include "platform/zorbus/CommSettings.h"
#include "ui/wizards/frame/WizardDescription.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvex {

class ISerialWizardDialogs;
class IWizardHost;
class SerialZorbus;

/// The serial port in the Options menu of a wizard: the entries `SerialPortSettings`, `Enable_DisableCOM` and
/// `StartLogging`, and what the link's events change in them. The product owns it and places the entries in its menu.
class SerialWizardMenu {
public:
    /// `settings` are those of the program and outlive this, as the dialogs do. `settingsTaken` is called when the link
    /// has got other settings, before it is tested.
    SerialWizardMenu(CommSettings& settings, ISerialWizardDialogs& dialogs,
                     std::function<void()> settingsTaken = nullptr);
    SerialWizardMenu(const SerialWizardMenu&) = delete;
    SerialWizardMenu& operator=(const SerialWizardMenu&) = delete;

    // For the product's Describe. The entries keep `this`.
    MenuEntry SettingsEntry(const std::string& caption);
    MenuEntry PortEntry(const std::string& caption);
    MenuEntry LoggingEntry(const std::string& caption);

    // The product hands these on.
    void Attach(IWizardHost& host) { host_ = &host; }
    void DeviceBound(const std::shared_ptr<IDevice>& device);
    void MenusEnabled(bool enabled);
    void Unload() { subscriptions_.clear(); }

    /// The link in use where it is a serial one; none else.
    SerialZorbus* Link() const;
    const CommSettings& Settings() const { return settings_; }
    /// Gives the link, where it is a serial one, the settings; it opens its port again when they differ from its own.
    void HandOverSettings();
    /// Tells that no enclosure answers. False when the user gave up, else the caller tries again, with the settings
    /// that the link has then.
    bool AskToRetry();

    // The entries.
    void SerialPortSettings_Click();
    void Enable_DisableCOM_Click();
    void StartLogging_Click();

    // Handlers of the link's events.
    void ehSerialZorbus_Connected(std::int32_t port);
    void ehSerialZorbus_Disconnected(std::int32_t port);
    void ehSerialZorbus_SerialSettingChanged(const CommSettings& settings);

    // Handlers of the dialogs.
    void m_serialDlg_CommSettingsChanged(const CommSettings& settings);
    void m_serialDlg_UserCancelled();
    void m_commHelpDlg_SettingsChanged(const CommSettings& settings);
    void m_commHelpDlg_UserCancelled();

private:
    bool Connect();
    bool Answers();
    void ShowPort(bool connected);

    CommSettings& settings_;
    ISerialWizardDialogs& dialogs_;
    std::function<void()> settingsTaken_;
    IWizardHost* host_ = nullptr;
    bool asksForSettings_ = false; ///< the settings dialog is to be shown, or to be shown again
    bool retries_ = true;          ///< the user has not given up finding an enclosure
    std::vector<Subscription> subscriptions_;
};

}

#pragma once

#include "comm/api/IDevice.h"
#include "config/IConfigController.h"
#include "config/IProgress.h"

#include <cstdint>
#include <memory>
#include <string>

namespace tarvex {

class Document;

/// Kinds of change that a view is told of.
inline constexpr std::int32_t kEverythingChanged = 0;
inline constexpr std::int32_t kRegisterChanged = 1;
inline constexpr std::int32_t kPropertyChanged = 2;

/// The main window as start-up and document see it: the steps that start-up takes on it, and what the document tells
/// it.
class IMainView : public IStatusLine, public IProgress {
public:
    // Steps of start-up, in their order.
    virtual void InitialiseState() = 0;
    virtual void ShowNetworkAddress(bool visible) = 0;
    /// Shows and enables, or hides and disables, the "Serial Settings" entry.
    virtual void ShowSerialSettings(bool visible) = 0;
    virtual void LayOut() = 0;
    virtual void SetStatusRefreshInterval(std::int32_t milliseconds) = 0;
    /// From now on the removal of a device reaches the window.
    virtual void HookDeviceChanges() = 0;
    /// Shows the loaded preferences in menus and boxes.
    virtual void ApplyPreferences() = 0;
    virtual void EnableTransfers(bool enabled) = 0;
    virtual void PrepareFileDialog(const std::string& folder, const std::string& helpFile) = 0;
    /// Hands over the document, before its Run; none lets go of it.
    virtual void Attach(Document* document) = 0;

    /// Binds the window to controller and device and fills its menus. Needs Attach.
    virtual void Init(IConfigController& controller, std::shared_ptr<IDevice> device) = 0;
    virtual bool IsViewVisible() const = 0;
    virtual void ShowView() = 0;
    virtual void HideView() = 0;
    virtual void FocusView() = 0;
    /// Opens a data file as the Open menu entry would, from its question on.
    virtual void OpenDataFile(const std::string& path) = 0;
    /// Asks about unsaved edits; false when the user wants the program to stay.
    virtual bool ConfirmClose() = 0;
    /// Asks about edits that would be lost now, being neither loaded nor saved; false when the user wants them to stay.
    virtual bool MayDropEdits() = 0;

    /// Another view changed the board: one of the kinds above and the register's or setting's name.
    virtual void UpdateUI(std::int32_t kind, const std::string& name) = 0;
    /// Another view has transferred registers: shows what they hold now, where the window is to be seen.
    virtual void ShowRegisterValues() = 0;
    virtual void CommFailure(const std::string& text) = 0;
    /// Ticks "Real Time Update" without asking the board, and disables it: a second view always writes at once.
    virtual void LockRealTime() = 0;
    virtual void SetAsSecondaryView(bool secondary) = 0;
    /// Address of the enclosure and number of the connector in it that the window works on from now on.
    virtual void SetZorbusID(std::int32_t value) = 0;
    virtual void SetChannelNum(std::int16_t number) = 0;
    /// Sets the AutoConnect preference for this run.
    virtual void SetPrefAutoConnect(bool on) = 0;
};

}

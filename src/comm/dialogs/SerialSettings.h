#pragma once

#include "base/Event.h"
#include "platform/zorbus/CommSettings.h"

#include <QDialog>

class QCheckBox;
class QComboBox;

namespace tarvex {

class IUserPrompts;

/// Lets the user choose COM port, baud rate and whether the link stays open. It speaks to no hardware: who shows it
/// hands the settings to the link. It can be shown again, and then goes on with what was chosen.
class SerialSettings : public QDialog {
public:
    /// `prompts`, which must outlive the window, shows the hourglass.
    SerialSettings(IUserPrompts& prompts, QWidget* parent);

    /// Takes a copy of the settings and shows it. Those of another kind than a serial port change no control; a port
    /// beyond the list leaves the list of ports as it is.
    void SetCommSettings(const CommSettings& settings);

    /// Raised by OK, under the hourglass, with the settings as those of a serial port. Then the window closes, unless a
    /// handler failed.
    Event<SerialSettings, const CommSettings&> CommSettingsChanged;
    /// Raised by Cancel, Escape and the close box; then the window closes.
    Event<SerialSettings> UserCancelled;

    void reject() override;

private:
    QComboBox* MakeList(const char* objectName, const QString& accessibleName);
    QLayout* MakeButtons();
    void FillLists();
    void HearUser();
    void ShowPort();
    void ShowBaud();
    void Ok();

    IUserPrompts& prompts_;
    CommSettings settings_;
    QComboBox* CMB_Port;
    QComboBox* CMB_Baud;
    QCheckBox* CHK_KeepOpen;
};

}

#pragma once

#include "base/Event.h"
#include "platform/zorbus/CommSettings.h"

#include <QDialog>

class QGroupBox;
class QLineEdit;
class QPushButton;

namespace tarvex {

class IUserPrompts;

/// The topic of the help page about connecting to boards.
inline constexpr std::int32_t kConnectingTopic = 4001;

/// Shown when no enclosure answers: a checklist for the user's own use, the serial settings in use and a way to change
/// them. Retry only closes the window; who shows it then tries again. It speaks to no hardware.
class NoCommHelp : public QDialog {
public:
    /// `prompts`, which must outlive the window, shows help and hourglass.
    NoCommHelp(IUserPrompts& prompts, QWidget* parent);

    /// Takes a copy of the settings and shows port and baud rate.
    void InitSettings(const CommSettings& settings);
    /// True once the user gave up, until the window is shown again.
    bool UserCancelled() const { return userCancelled_; }

    /// Raised when the settings were changed in the settings window, which is still open then.
    Event<NoCommHelp, const CommSettings&> SettingsChanged;
    /// Raised by Cancel, Escape and the close box; then the window closes.
    Event<NoCommHelp> UserCancelledEvent;

    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QLayout* MakeChecklist();
    QGroupBox* MakeSettingsFrame();
    QLineEdit* MakeTextBox(const char* objectName, const QString& accessibleName, const QString& text);
    QLayout* MakeButtons();
    template <class Clicked> QPushButton* MakeButton(const char* objectName, const QString& caption, Clicked clicked);
    void ChangeSettings();

    IUserPrompts& prompts_;
    CommSettings settings_;
    bool userCancelled_ = false;
    QLineEdit* TXT_COM;
    QLineEdit* TXT_Baud;
    QPushButton* BTN_OK;
};

}

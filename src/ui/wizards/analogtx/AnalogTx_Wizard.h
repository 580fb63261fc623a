#pragma once

#include "platform/zorbus/CommSettings.h"
#include "ui/wizards/frame/WizardWindow.h"

namespace tarvex {

/// The window of the analog transmitter: the frame's window with what this board plugs into it. The document owns it.
class AnalogTx_Wizard : public WizardWindow {
public:
    /// `settings` are those of the program's serial port, which the user changes here.
    AnalogTx_Wizard(WizardWindowServices services, CommSettings& settings);
};

}

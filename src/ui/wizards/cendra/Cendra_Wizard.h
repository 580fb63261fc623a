#pragma once

#include "platform/zorbus/CommSettings.h"
#include "ui/wizards/frame/WizardWindow.h"

#include <QTimer>

namespace tarvex {

/// The window of the boards in an enclosure: the frame's window with what these boards plug into it. The document owns
/// it.
class Cendra_Wizard : public WizardWindow {
public:
    /// `settings` are those of the program's serial port, which the user changes here.
    Cendra_Wizard(WizardWindowServices services, CommSettings& settings);

private:
    /// Stands still: an enclosure is asked whether it answers when something is wanted of it, since asking all the
    /// time would hold up everybody on the line.
    QTimer PingTimer;
};

}

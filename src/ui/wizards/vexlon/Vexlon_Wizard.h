#pragma once

#include "ui/wizards/frame/WizardWindow.h"

namespace tarvex {

/// The window of the scaler boards: the frame's window with what these boards plug into it. The document owns it.
class Vexlon_Wizard : public WizardWindow {
public:
    explicit Vexlon_Wizard(WizardWindowServices services);
};

}

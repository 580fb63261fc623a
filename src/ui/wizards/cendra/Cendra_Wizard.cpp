#include "ui/wizards/cendra/Cendra_Wizard.h"

#include "ui/wizards/cendra/Cendra.h"

namespace tarvex {

Cendra_Wizard::Cendra_Wizard(WizardWindowServices services, CommSettings& settings, ISerialWizardDialogs& dialogs)
    : WizardWindow(std::make_unique<Cendra>(settings, dialogs), services)
{
    PingTimer.setObjectName("PingTimer");
}

}

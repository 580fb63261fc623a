#include "ui/wizards/cendra/Cendra_Wizard.h"

#include "ui/wizards/cendra/Cendra.h"
#include "ui/wizards/frame/SerialWizardDialogs.h"

namespace tarvex {

Cendra_Wizard::Cendra_Wizard(WizardWindowServices services, CommSettings& settings)
    : WizardWindow(std::make_unique<Cendra>(settings, std::make_unique<SerialWizardDialogs>(services.prompts)),
                   services)
{
    PingTimer.setObjectName("PingTimer");
}

}

#include "ui/wizards/analogtx/AnalogTx_Wizard.h"

#include "ui/wizards/analogtx/AnalogTx.h"
#include "ui/wizards/frame/SerialWizardDialogs.h"

namespace tarvex {

AnalogTx_Wizard::AnalogTx_Wizard(WizardWindowServices services, CommSettings& settings)
    : WizardWindow(std::make_unique<AnalogTx>(settings, std::make_unique<SerialWizardDialogs>(services.prompts)),
                   services)
{}

}

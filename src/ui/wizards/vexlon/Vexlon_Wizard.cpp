#include "ui/wizards/vexlon/Vexlon_Wizard.h"

#include "ui/wizards/vexlon/Vexlon.h"

namespace tarvex {

Vexlon_Wizard::Vexlon_Wizard(WizardWindowServices services) : WizardWindow(std::make_unique<Vexlon>(), services) {}

}

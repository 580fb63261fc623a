#include "ui/wizards/frame/IWizardProduct.h"

#include "ui/wizards/frame/BarRules.h"

namespace tarvex {

std::string IWizardProduct::ValueText(const std::string&, std::int32_t position) { return std::to_string(position); }

std::int32_t IWizardProduct::LargeStep(std::int32_t range) { return UsualLargeStep(range); }

}

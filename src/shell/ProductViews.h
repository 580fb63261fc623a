#pragma once

#include "comm/IProduct.h"
#include "shell/IWizardView.h"

#include <memory>
#include <string>
#include <string_view>

namespace tarvex {

inline constexpr const char* kAdvancedForm = "AdvancedForm";
inline constexpr const char* kVexlonWizard = "Vexlon Wizard";

/// How the wizard of one product is started.
struct WizardStart {
    const char* product;
    const char* minInitVersion;
    WizardKind kind;
    const char* caption;
    const char* deviceName; ///< of the init file
    const char* link;
    bool connects;    ///< the link is connected at once; other links connect in the wizard
    bool autoConnect; ///< sets that preference for this run
    std::shared_ptr<IProduct> (*makeProduct)();
};

/// The start of a product given in upper case, or none.
const WizardStart* FindWizardStart(std::string_view upperCaseProduct);

/// Whether a view of this name is one of the product wizards.
bool IsWizardViewName(std::string_view viewName);

/// The view that shows a product; empty for an unknown product.
std::string ViewNameForProduct(std::string_view product);

/// The name under which the init file knows a product.
std::string DeviceNameForProduct(const std::string& product);

}

#pragma once

#include "comm/IProduct.h"
#include "comm/api/IDevice.h"
#include "config/IConfigController.h"

#include <cstdint>
#include <memory>
#include <string>

namespace tarvex {

class Document;

enum class WizardKind { Vexlon, Cendra, AnalogTx };

/// A product wizard as the document sees it.
class IWizardView {
public:
    virtual ~IWizardView() = default;

    /// The view's own name, such as "Vexlon Wizard"; it stays when the caption changes.
    virtual std::string ViewName() = 0;
    virtual void SetCaption(const std::string& caption) = 0;
    /// Binds the wizard to its parts; false when it cannot serve the product.
    virtual bool Init(IConfigController& controller, std::shared_ptr<IDevice> device, Document& document,
                      std::shared_ptr<IProduct> product) = 0;
    virtual void SetCurrentProduct(const std::string& product) = 0;
    virtual void ShowView() = 0;
    virtual void HideView() = 0;
    virtual void FocusView() = 0;
    /// Closes the window for good, without a question.
    virtual void Unload() = 0;
    /// Asks about unsaved settings; false when the user wants the wizard to stay.
    virtual bool ConfirmClose() = 0;
    virtual void UpdateUI(std::int32_t kind, const std::string& name) = 0;
    virtual void CommFailure(const std::string& text) = 0;
};

}

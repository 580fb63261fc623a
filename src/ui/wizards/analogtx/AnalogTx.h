#pragma once

#include "base/Event.h"
#include "ui/wizards/frame/SerialWizardProduct.h"

#include <cstdint>
#include <memory>
#include <string>

namespace tarvex {

/// What the analog transmitter Ossary-Plus plugs into the wizards' frame: a single board on the serial network, with
/// one signal processor. Main makes it; the frame calls it.
class AnalogTx : public SerialWizardProduct {
public:
    /// `settings` are those of the program's serial port and outlive this.
    AnalogTx(CommSettings& settings, std::unique_ptr<ISerialWizardDialogs> dialogs);

    WizardDescription Describe() override;
    bool Init(const std::shared_ptr<IProduct>&) override;
    void SetCurrentProduct(const std::string& product) override;
    void NodeClicked(const std::string& key) override;
    std::string HelpPicture(const std::string& element) override;
    bool OpenFile(const std::string& path) override;
    void Unload() override;

    /// Another link has been put in place while the wizard is at work.
    void r_document_CommLinkChanged(const std::shared_ptr<IDevice>& device);

private:
    std::int16_t Aspi() const;
    std::optional<std::int16_t> AspiOf(const RegisterObject&) const override { return Aspi(); }
    static FlashSteps StepsOf(AnalogTx& product);
    void MakeCurrentAgain();

    Subscription linkChanged_;
};

}

#pragma once

#include "base/Event.h"
#include "platform/zorbus/CommSettings.h"
#include "ui/wizards/frame/BitsetElements.h"
#include "ui/wizards/frame/BoardImage.h"
#include "ui/wizards/frame/ISerialWizardDialogs.h"
#include "ui/wizards/frame/IWizardProduct.h"
#include "ui/wizards/frame/SerialWizardFlash.h"
#include "ui/wizards/frame/SerialWizardMenu.h"

#include <cstdint>
#include <memory>
#include <string>

namespace tarvex {

/// What the analog transmitter Ossary-Plus plugs into the wizards' frame: a single board on the serial network, with
/// one signal processor. Main makes it; the frame calls it.
class AnalogTx : public IWizardProduct {
public:
    /// `settings` are those of the program's serial port and outlive this.
    AnalogTx(CommSettings& settings, std::unique_ptr<ISerialWizardDialogs> dialogs);
    AnalogTx(const AnalogTx&) = delete;
    AnalogTx& operator=(const AnalogTx&) = delete;

    WizardDescription Describe() override;
    void Attach(IWizardHost& host) override;
    bool Init(const std::shared_ptr<IProduct>&) override;
    void SetCurrentProduct(const std::string& product) override;
    void DeviceBound(const std::shared_ptr<IDevice>& device) override { menu_.DeviceBound(device); }
    void MenusEnabled(bool enabled) override { menu_.MenusEnabled(enabled); }
    BoardImage& Image() override { return image_; }
    void NodeClicked(const std::string& key) override;

    ElementBounds Bounds(const std::string& element) override { return elements_.Bounds(element); }
    std::int32_t ReadElement(const std::string& element) override { return elements_.Read(element); }
    bool WriteElement(const std::string& element, std::int32_t value) override;
    std::string ValueText(const std::string& element, std::int32_t position) override;
    std::string HelpPicture(const std::string& element) override;
    std::string UnreadMessage(const std::string& element) override;

    bool OpenFile(const std::string& path) override;
    void Unload() override;

    /// Another link has been put in place while the wizard is at work.
    void r_document_CommLinkChanged(const std::shared_ptr<IDevice>& device);

private:
    std::int16_t Aspi() const;
    FlashSteps Steps();
    void MakeCurrentAgain();

    IWizardHost* host_ = nullptr;
    BoardImage image_;
    std::unique_ptr<ISerialWizardDialogs> dialogs_;
    BitsetElements elements_;
    SerialWizardMenu menu_;
    SerialWizardFlash flash_;
    Subscription linkChanged_;
};

}

#pragma once

#include "platform/zorbus/CommSettings.h"
#include "ui/wizards/frame/BitsetElements.h"
#include "ui/wizards/frame/BoardImage.h"
#include "ui/wizards/frame/ISerialWizardDialogs.h"
#include "ui/wizards/frame/IWizardProduct.h"
#include "ui/wizards/frame/SerialWizardFlash.h"
#include "ui/wizards/frame/SerialWizardMenu.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tarvex {

/// What the products on the serial network have in common: elements that are properties of the init file, the port and
/// the flash in the Options menu.
class SerialWizardProduct : public IWizardProduct {
public:
    /// `settings` are those of the program's serial port and outlive this. `settingsTaken` is called when the link has
    /// got other ones, before it is tested.
    SerialWizardProduct(CommSettings& settings, std::unique_ptr<ISerialWizardDialogs> dialogs, FlashSteps flashSteps,
                        std::function<void()> settingsTaken = nullptr);
    SerialWizardProduct(const SerialWizardProduct&) = delete;
    SerialWizardProduct& operator=(const SerialWizardProduct&) = delete;

    void Attach(IWizardHost& host) override;
    BoardImage& Image() override { return image_; }
    void DeviceBound(const std::shared_ptr<IDevice>& device) override { menu_.DeviceBound(device); }
    void MenusEnabled(bool enabled) override { menu_.MenusEnabled(enabled); }

    ElementBounds Bounds(const std::string& element) override { return elements_.Bounds(element); }
    std::int32_t ReadElement(const std::string& element) override { return elements_.Read(element); }
    bool WriteElement(const std::string& element, std::int32_t value) override;
    std::string ValueText(const std::string& element, std::int32_t position) override;
    std::string UnreadMessage(const std::string& element) override;
    void Unload() override { menu_.Unload(); }

private:
    std::unique_ptr<ISerialWizardDialogs> dialogs_;
    IWizardHost* host_ = nullptr;

protected:
    /// What both describe alike.
    WizardDescription SerialDescription() const;
    IWizardHost& Host() const { return *host_; }

    BoardImage image_;
    BitsetElements elements_;
    SerialWizardMenu menu_;
    SerialWizardFlash flash_;

private:
    /// ASPI argument for transfers of a register of the target; none when the target does not have it.
    virtual std::optional<std::int16_t> AspiOf(const RegisterObject& target) const = 0;
};

}

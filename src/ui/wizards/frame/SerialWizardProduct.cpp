#include "ui/wizards/frame/SerialWizardProduct.h"

#include "comm/Links.h"

#include <utility>

namespace tarvex {

SerialWizardProduct::SerialWizardProduct(CommSettings& settings, std::unique_ptr<ISerialWizardDialogs> dialogs,
                                         FlashSteps flashSteps, std::function<void()> settingsTaken)
    : dialogs_(std::move(dialogs)), image_([this](const RegisterObject& target) { return AspiOf(target); }),
      elements_([this](const RegisterObject& target) { return AspiOf(target).value_or(kNoAspi); }),
      menu_(settings, *dialogs_, std::move(settingsTaken)), flash_(menu_, std::move(flashSteps))
{}

WizardDescription SerialWizardProduct::SerialDescription() const
{
    WizardDescription description;
    description.realLink = kSerialDeviceType;
    description.failureHelpTip = "CommunicationFailure_SerialZorbus.rtf";
    return description;
}

void SerialWizardProduct::Attach(IWizardHost& host)
{
    host_ = &host;
    elements_.Attach(host);
    menu_.Attach(host);
    flash_.Attach(host);
}

bool SerialWizardProduct::WriteElement(const std::string& element, std::int32_t value)
{
    elements_.Write(element, value);
    return true;
}

std::string SerialWizardProduct::ValueText(const std::string& element, std::int32_t position)
{
    return BitsetElements::ValueText(element, position);
}

std::string SerialWizardProduct::UnreadMessage(const std::string& element)
{
    return "Failed to get current status of " + element + " setting.";
}

}

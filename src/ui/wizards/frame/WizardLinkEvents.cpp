#include "comm/HIDDevice.h"
#include "shell/Document.h"
#include "ui/wizards/frame/WizardLink.h"

namespace tarvex {

void WizardLink::BindDevice()
{
    subscriptions_.clear();
    const auto device = document_->device();
    if (auto* link = dynamic_cast<HIDDevice*>(device.get())) {
        subscriptions_.push_back(
            link->ReadFailure.Subscribe([this](auto a, auto b) { ehHIDDevice_ReadFailure(a, b); }));
        subscriptions_.push_back(
            link->WriteFailure.Subscribe([this](auto a, auto b) { ehHIDDevice_WriteFailure(a, b); }));
        subscriptions_.push_back(
            link->ReadSuccess.Subscribe([this](auto a, auto b) { ehHIDDevice_ReadSuccess(a, b); }));
        subscriptions_.push_back(
            link->WriteSuccess.Subscribe([this](auto a, auto b) { ehHIDDevice_WriteSuccess(a, b); }));
    }
    product_.DeviceBound(device);
}

bool WizardLink::IsKnownGone(const IDevice& device)
{
    const auto* link = dynamic_cast<const HIDDevice*>(&device);
    return link && (!link->IsPresent() || link->LastTransferTimedOut());
}

}

#include "comm/HIDDevice.h"
#include "comm/SerialZorbus.h"
#include "shell/Document.h"
#include "ui/wizards/frame/WizardLink.h"

namespace tarvex {

void WizardLink::BindDevice()
{
    subscriptions_.clear();
    product_.Image().Forget();
    const auto device = document_->device();
    const auto listen = [this](auto& event, auto handler) {
        subscriptions_.push_back(event.Subscribe([this, handler](auto a, auto b) { (this->*handler)(a, b); }));
    };
    if (auto* hid = dynamic_cast<HIDDevice*>(device.get())) {
        listen(hid->ReadFailure, &WizardLink::ehHIDDevice_ReadFailure);
        listen(hid->WriteFailure, &WizardLink::ehHIDDevice_WriteFailure);
        listen(hid->ReadSuccess, &WizardLink::ehHIDDevice_ReadSuccess);
        listen(hid->WriteSuccess, &WizardLink::ehHIDDevice_WriteSuccess);
    } else if (auto* serial = dynamic_cast<SerialZorbus*>(device.get())) {
        listen(serial->ReadFailure, &WizardLink::ehSerialZorbus_ReadFailure);
        listen(serial->WriteFailure, &WizardLink::ehSerialZorbus_WriteFailure);
        listen(serial->ReadSuccess, &WizardLink::ehSerialZorbus_ReadSuccess);
        listen(serial->WriteSuccess, &WizardLink::ehSerialZorbus_WriteSuccess);
        subscriptions_.push_back( // until the port is opened again the board may change
            serial->Disconnected.Subscribe([this](std::int32_t) { product_.Image().Forget(); }));
    }
    product_.DeviceBound(device);
}

bool WizardLink::IsKnownGone(const IDevice& device)
{
    const auto* link = dynamic_cast<const HIDDevice*>(&device);
    return link && (!link->IsPresent() || link->LastTransferTimedOut());
}

}

#include "ui/advanced/BoardLink.h"

#include "base/Error.h"
#include "comm/DemoDevice.h"
#include "comm/HIDDevice.h"
#include "comm/SerialZorbus.h"
#include "model/RegisterObject.h"
#include "shell/Document.h"

namespace tarvex {

void BoardLink::BindDevice()
{
    counts_ = {};
    subscriptions_.clear();
    if (HIDDevice* usb = UsbLink()) {
        CountTransfersOf(*usb);
        const auto noteStuck = [this, usb](std::int32_t, std::int32_t) {
            counts_.boardStuck = usb->LastTransferTimedOut();
        };
        subscriptions_.push_back(usb->ReadFailure.Subscribe(noteStuck));
        subscriptions_.push_back(usb->WriteFailure.Subscribe(noteStuck));
    }
    if (SerialZorbus* serial = SerialLink()) {
        CountTransfersOf(*serial);
        subscriptions_.push_back(serial->Connected.Subscribe([this](std::int32_t) { Connected.Raise(); }));
    }
}

template <class Link> void BoardLink::CountTransfersOf(Link& link)
{
    const auto failed = [this](std::int32_t, std::int32_t) { ++counts_.failures; };
    const auto succeeded = [this](std::int32_t, std::int32_t) { ++counts_.successes; };
    subscriptions_.push_back(link.ReadFailure.Subscribe(failed));
    subscriptions_.push_back(link.WriteFailure.Subscribe(failed));
    subscriptions_.push_back(link.ReadSuccess.Subscribe(succeeded));
    subscriptions_.push_back(link.WriteSuccess.Subscribe(succeeded));
}

HIDDevice* BoardLink::UsbLink() const { return dynamic_cast<HIDDevice*>(Device()); }

SerialZorbus* BoardLink::SerialLink() const { return dynamic_cast<SerialZorbus*>(Device()); }

bool BoardLink::IsGone() const
{
    HIDDevice* usb = UsbLink();
    return usb && usb->IsConnected() && !usb->IsPresent();
}

std::string BoardLink::WhyRefused() const
{
    HIDDevice* usb = UsbLink();
    const std::string hint = usb ? usb->OpenRefusedHint(programFolder_) : std::string();
    return hint.empty() ? hint : "\n\n" + hint;
}

IDevice* BoardLink::Device() const { return document_.device().get(); }

std::string BoardLink::DeviceType() const { return Device() ? Device()->DeviceType() : std::string(); }

bool BoardLink::IsDemo() const { return DeviceType() == kDemoDeviceType; }

bool BoardLink::IsSerial() const { return DeviceType() == kSerialDeviceType; }

bool BoardLink::IsConnected() const { return Device() && Device()->IsConnected(); }

std::optional<std::int32_t> BoardLink::ConnectedId() const
{
    return IsConnected() ? std::optional(Device()->ProductID()) : std::nullopt;
}

bool BoardLink::Connect()
{
    if (!Device())
        return false;
    IConfigController& controller = document_.controller();
    return Succeeds([&] {
        const bool stands = !IsSerial() && Device()->IsConnected(); // an enclosure that is in use answers at once
        return stands || Device()->connect(controller.pid(), controller.vid()) == 1;
    });
}

bool BoardLink::Verify()
{
    if (!Connect())
        return false;
    IConfigController& controller = document_.controller();
    if (controller.GetI2CRegisterCount() == 0)
        return Succeeds([&] { return Device()->VerifyCommunications(0, 0); });
    const auto first = controller.GetI2CRegister(0);
    return Succeeds([&] { return Device()->VerifyCommunications(first->BaseAddress(), first->Address()); });
}

void BoardLink::Release()
{
    if (Device() && !IsDemo())
        Device()->Disconnect();
}

bool BoardLink::UseSettings(const CommSettings& settings)
{
    return Succeeds([&] {
        if (SerialZorbus* serial = SerialLink())
            serial->SetCommParameters(settings);
        return Verify();
    });
}

bool BoardLink::Succeeds(const std::function<bool()>& attempt)
{
    const auto busy = beginBusy_();
    const auto kept = document_.device(); // stays while it is at work
    try {
        return attempt();
    } catch (const Error&) {
        errorLog_.LogCurrentError();
        return false;
    }
}

}

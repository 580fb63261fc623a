#include "ui/advanced/BoardLink.h"

#include "base/Error.h"
#include "comm/DemoDevice.h"
#include "model/RegisterObject.h"
#include "shell/Document.h"

namespace tarvex {

void BoardLink::BindDevice() { counts_ = {}; }

IDevice* BoardLink::Device() const { return document_.device().get(); }

std::string BoardLink::DeviceType() const { return Device() ? Device()->DeviceType() : std::string(); }

bool BoardLink::IsDemo() const { return DeviceType() == kDemoDeviceType; }

bool BoardLink::IsConnected() const { return Device() && Device()->IsConnected(); }

bool BoardLink::Connect()
{
    if (!Device())
        return false;
    IConfigController& controller = document_.controller();
    return Succeeds(
        [&] { return Device()->IsConnected() || Device()->connect(controller.pid(), controller.vid()) == 1; });
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

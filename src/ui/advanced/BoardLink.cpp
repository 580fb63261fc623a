#include "ui/advanced/BoardLink.h"

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
    if (Device()->IsConnected())
        return true;
    IConfigController& controller = document_.controller();
    return Device()->connect(controller.pid(), controller.vid()) == 1;
}

bool BoardLink::Verify()
{
    if (!Connect())
        return false;
    IConfigController& controller = document_.controller();
    if (controller.GetI2CRegisterCount() == 0)
        return Device()->VerifyCommunications(0, 0);
    const auto first = controller.GetI2CRegister(0);
    return Device()->VerifyCommunications(first->BaseAddress(), first->Address());
}

}

#include "comm/SerialZorbus.h"
#include "config/IConfigController.h"
#include "shell/Document.h"
#include "ui/advanced/BoardActions.h"

#include <algorithm>

namespace tarvex {

bool BoardActions::Aim()
{
    if (!link_.IsSerial())
        return true;
    cancelled_ = cancelled_ || !target_.AskForAddress() || !target_.AskForConnector(controller_.deviceName());
    if (!cancelled_)
        controller_.pid(target_.NodeId().value_or(0));
    return !cancelled_;
}

void BoardActions::SwitchLink(const std::string& link)
{
    const auto busy = services_.beginBusy(); // a serial port may have to rest first
    document_.SelectCommLink(link);
}

std::string BoardActions::Browse()
{
    const auto busy = services_.beginBusy();
    const auto device = document_.device();
    return link_.IsDemo() ? std::string() : device->Browse();
}

bool BoardActions::ConnectTo(const std::string& name)
{
    const auto busy = services_.beginBusy();
    const auto device = document_.device();
    return link_.IsSerial() ? ConnectToNode(name) : controller_.ConnectDevice(name, *device);
}

bool BoardActions::ConnectToNode(const std::string& name)
{
    const auto device = document_.device();
    const std::string product = controller_.deviceName();
    const auto links = LinksOf(product);
    const bool isOfProduct = std::find(links.begin(), links.end(), kSerialDeviceType) != links.end();
    if (isOfProduct ? device->ConnectToPath(name) == 0 : !controller_.ConnectDevice(name, *device))
        return false;
    if (isOfProduct)
        controller_.InitDevice(product); // tells of the connection as every other one does
    target_.ShowNode(device->ProductID());
    return true;
}

/// A wizard that starts with Ossary-Plus takes over the registers as they are in the board; it is not there yet.
void BoardActions::LinkConnected()
{
    const bool isStart = !view_.IsViewVisible() && !inUserAction_ && !document_.CurrentWizForm();
    if (!isStart || !services_.preferences.autoConnect || !IsFixedAddressProduct(controller_.deviceName()) ||
        !link_.IsConnected())
        return;
    lastReadIncomplete_ = !Run(AllRegisters(controller_), &RegisterTransfer::Read).Complete();
    ShowValues();
}

void BoardActions::ChangeSerialSettings()
{
    const UserAction action(*this);
    CommSettings& settings = services_.preferences.serial;
    while (const auto chosen = services_.chooseSerialSettings(settings)) {
        settings = *chosen;
        if (!link_.IsSerial()) {
            services_.statusLine.DisplayStatusMessage("The settings are kept for the link SerialZorbus.");
            return;
        }
        controller_.pid(target_.NodeId().value_or(0));
        const std::string port = "COM " + std::to_string(settings.comPort);
        if (link_.UseSettings(settings)) {
            services_.statusLine.DisplayStatusMessage("Communication verified on " + port);
            return;
        }
        services_.statusLine.DisplayStatusMessage("Failed to verify communication to " + port);
        if (!services_.prompts.Ask(
                "Unable to communicate to hardware. Do you want to continue to change the communication settings?"))
            return;
    }
}

}

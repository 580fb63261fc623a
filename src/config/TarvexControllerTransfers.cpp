#include "base/Numbers.h"
#include "config/IProgress.h"
#include "config/TarvexController.h"
#include "model/RegisterObject.h"
#include "model/TarvexProperty.h"

namespace tarvex {

bool TarvexController::IConfigController_ReadI2CRegister(IDevice& device, const std::string& name, std::int16_t aspi)
{
    if (name.empty())
        return ReadAllRegisters(device, aspi);
    return ReadOneRegister(*RegisterNamed(name, "TarvexController::ReadI2CRegister"), device, aspi);
}

bool TarvexController::ReadOneRegister(RegisterObject& target, IDevice& device, std::int16_t aspi)
{
    const bool result = target.ReadValue(device, aspi) != 0;
    progress_->TickProgress(1);
    return result;
}

bool TarvexController::ReadAllRegisters(IDevice& device, std::int16_t aspi)
{
    const auto registers = device_.map.registers; // a handler of the link may choose another device meanwhile
    progress_->SetRange(GetI2CRegisterCount(), 0);
    bool result = false;
    for (const auto& next : registers) {
        statusLine_.DisplayStatusMessage("Reading register value for " + next->Name());
        result = ReadOneRegister(*next, device, aspi);
    }
    return result;
}

void TarvexController::IConfigController_WriteI2CRegister(IDevice& device, const std::string& name, std::int16_t aspi)
{
    if (!name.empty())
        return WriteOneRegister(*RegisterNamed(name, "TarvexController::WriteI2CRegister"), device, aspi);
    const auto registers = device_.map.registers;
    progress_->SetRange(GetI2CRegisterCount(), 0);
    for (const auto& next : registers) {
        WriteOneRegister(*next, device, aspi);
        progress_->TickProgress(1);
    }
}

void TarvexController::WriteOneRegister(RegisterObject& target, IDevice& device, std::int16_t aspi)
{
    statusLine_.DisplayStatusMessage("Writing register value for " + target.Name());
    target.WriteValue(device, aspi);
}

bool TarvexController::IConfigController_ReadPropertyByName(IDevice& device, const std::string& name, std::int16_t)
{
    if (!name.empty()) {
        ReadOneProperty(name, nullptr, device);
        return true;
    }
    const auto properties = device_.map.properties;
    progress_->SetRange(GetPropertyCount(), 0);
    for (const auto& next : properties)
        ReadOneProperty(next->Name(), next, device);
    return true;
}

void TarvexController::ReadOneProperty(const std::string& name, std::shared_ptr<TarvexProperty> property,
                                       IDevice& device)
{
    statusLine_.DisplayStatusMessage("Reading property value for " + name);
    if (!property)
        property = GetPropertyByName(name);
    property->ReadValue(device);
    progress_->TickProgress(1);
}

void TarvexController::IConfigController_WritePropertyByName(IDevice& device, const std::string& name, std::int16_t)
{
    if (!name.empty())
        return WriteOneProperty(name, nullptr, device);
    const auto properties = device_.map.properties;
    progress_->SetRange(GetPropertyCount(), 0);
    for (const auto& next : properties) {
        WriteOneProperty(next->Name(), next, device);
        progress_->TickProgress(1);
    }
}

void TarvexController::WriteOneProperty(const std::string& name, std::shared_ptr<TarvexProperty> property,
                                        IDevice& device)
{
    statusLine_.DisplayStatusMessage("Writing property value for " + name);
    if (!property)
        property = GetPropertyByName(name);
    property->WriteValue(device);
}

}

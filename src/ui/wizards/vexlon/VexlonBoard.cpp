#include "ui/wizards/vexlon/VexlonBoard.h"

#include "model/RegisterObject.h"

namespace tarvex {

RegisterObject& VexlonBoard::Register(const std::string& name) const
{
    return *host_->Controller().GetI2CRegisterByName(name);
}

std::int32_t VexlonBoard::Value(const std::string& name) const { return Register(name).value(); }

std::int32_t VexlonBoard::Read(const std::string& name) const
{
    return Register(name).ReadValue(host_->Device(), kNoAspi);
}

void VexlonBoard::Write(const std::string& name, std::int32_t value) const
{
    RegisterObject& target = Register(name);
    const std::int32_t before = target.value();
    const int failures = host_->Failures();
    target.value(value);
    target.WriteValue(host_->Device(), kNoAspi);
    if (host_->Failures() > failures)
        target.value(before); // the next step must not start from a value that the board never got
}

void VexlonBoard::Write(const std::vector<RegisterValue>& values) const
{
    for (const RegisterValue& each : values)
        Write(each.name, each.value);
}

}

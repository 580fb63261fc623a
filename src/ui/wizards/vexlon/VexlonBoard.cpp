#include "ui/wizards/vexlon/VexlonBoard.h"

#include "model/RegisterObject.h"
#include "ui/wizards/frame/RegisterWrite.h"

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

std::optional<std::int32_t> VexlonBoard::ReadNow(const char* source, const std::string& name) const
{
    std::int32_t value = 0;
    if (!host_->Read(source, name, [&] { value = Read(name); }))
        return std::nullopt;
    return value;
}

void VexlonBoard::Write(const std::string& name, std::int32_t value) const
{
    WriteRegister(*host_, Register(name), value, kNoAspi);
}

void VexlonBoard::Write(const std::vector<RegisterValue>& values) const
{
    for (const RegisterValue& each : values)
        Write(each.name, each.value);
}

}

#include "config/RegisterMap.h"

#include "model/RegisterObject.h"
#include "model/TarvexProperty.h"

#include <utility>

namespace tarvex {

RegisterMap& RegisterMap::operator=(RegisterMap&& other) noexcept
{
    registers.swap(other.registers);
    registerNames.Swap(other.registerNames);
    groups.swap(other.groups);
    properties.swap(other.properties);
    propertyNames.Swap(other.propertyNames);
    return *this;
}

RegisterMap::~RegisterMap()
{
    for (const auto& ending : registers)
        ending->ClearDependencies();
}

void RegisterMap::Reserve(std::size_t more)
{
    registers.reserve(registers.size() + more);
    registerNames.Reserve(registers, registers.size() + more);
}

bool RegisterMap::AddRegister(std::shared_ptr<RegisterObject> added)
{
    if (!registerNames.Add(registers, added->Name()))
        return false;
    registers.push_back(std::move(added));
    return true;
}

void RegisterMap::AddProperty(std::shared_ptr<TarvexProperty> added)
{
    propertyNames.Add(properties, added->Name());
    properties.push_back(std::move(added));
}

std::shared_ptr<RegisterObject> RegisterMap::FindRegister(std::string_view name) const
{
    const std::size_t position = registerNames.Find(registers, name);
    return position == registerNames.kNone ? nullptr : registers[position];
}

std::shared_ptr<TarvexProperty> RegisterMap::FindProperty(std::string_view name) const
{
    const std::size_t position = propertyNames.Find(properties, name);
    return position == propertyNames.kNone ? nullptr : properties[position];
}

}

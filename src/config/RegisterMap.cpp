#include "config/RegisterMap.h"

#include "model/RegisterObject.h"
#include "model/TarvexProperty.h"

#include <utility>

namespace tarvex {

RegisterMap& RegisterMap::operator=(RegisterMap&& other) noexcept
{
    registers.swap(other.registers);
    registerPositions.swap(other.registerPositions);
    groups.swap(other.groups);
    properties.swap(other.properties);
    propertyPositions.swap(other.propertyPositions);
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
    registerPositions.reserve(registers.size() + more);
}

bool RegisterMap::AddRegister(std::shared_ptr<RegisterObject> added)
{
    if (!registerPositions.emplace(added->Name(), registers.size()).second)
        return false;
    registers.push_back(std::move(added));
    return true;
}

void RegisterMap::AddProperty(std::shared_ptr<TarvexProperty> added)
{
    propertyPositions.emplace(added->Name(), properties.size());
    properties.push_back(std::move(added));
}

std::shared_ptr<RegisterObject> RegisterMap::FindRegister(std::string_view name) const
{
    const auto found = registerPositions.find(name);
    return found == registerPositions.end() ? nullptr : registers[found->second];
}

std::shared_ptr<TarvexProperty> RegisterMap::FindProperty(std::string_view name) const
{
    const auto found = propertyPositions.find(name);
    return found == propertyPositions.end() ? nullptr : properties[found->second];
}

}

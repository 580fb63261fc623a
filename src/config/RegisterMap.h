#pragma once

#include "config/NameIndex.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

class RegisterObject;
class TarvexGroup;
class TarvexProperty;

/// What one device consists of, in file order and by name: built aside, and put in place of the running map only when
/// it is whole. Views share its registers and may outlive it; the registers' dependencies end with it.
struct RegisterMap {
    using Registers = std::vector<std::shared_ptr<RegisterObject>>;
    using Properties = std::vector<std::shared_ptr<TarvexProperty>>;

    Registers registers;
    NameIndex<Registers> registerNames;
    std::vector<std::shared_ptr<TarvexGroup>> groups;
    Properties properties;
    NameIndex<Properties> propertyNames;

    RegisterMap() = default;
    RegisterMap(RegisterMap&&) = default;
    /// Exchanges the two, so that what was here before ends properly with the other.
    RegisterMap& operator=(RegisterMap&& other) noexcept;
    /// Registers may depend on each other in a circle, which would keep them alive for ever.
    ~RegisterMap();

    /// Makes room for this many more registers.
    void Reserve(std::size_t more);
    /// Adds a register; false when its name is taken.
    bool AddRegister(std::shared_ptr<RegisterObject> added);
    /// Adds a property; the first one of a name is the one that is found.
    void AddProperty(std::shared_ptr<TarvexProperty> added);
    /// The register or property of exactly this name, or none.
    std::shared_ptr<RegisterObject> FindRegister(std::string_view name) const;
    std::shared_ptr<TarvexProperty> FindProperty(std::string_view name) const;
};

/// One device as the file describes it: its identity and its map.
struct DeviceMap {
    std::string deviceName;
    std::string componentName;
    std::int32_t productId = 0;
    std::int32_t boardId = 0;
    RegisterMap map;
};

}

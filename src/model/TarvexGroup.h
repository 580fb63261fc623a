#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tarvex {

/// One register list: what it is called and how many registers and settings it has. A plain record that the controller
/// fills.
class TarvexGroup {
public:
    const std::string& Name() const { return name_; }
    void Name(std::string text) { name_ = std::move(text); }
    const std::string& ID() const { return id_; }
    void ID(std::string text) { id_ = std::move(text); }

    std::int16_t RegCount() const { return registers_; }
    std::int16_t PropCount() const { return properties_; }
    /// The names are the map's; nobody asks a list for them.
    void AddRegister(std::string_view) { ++registers_; }
    void AddProperty(std::string_view) { ++properties_; }

private:
    std::string name_;
    std::string id_;
    std::int16_t registers_ = 0;
    std::int16_t properties_ = 0;
};

}

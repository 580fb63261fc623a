#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tarvex {

/// The registers and settings of one register list, by name. A plain record that the controller fills.
class TarvexGroup {
public:
    const std::string& Name() const { return name_; }
    void Name(std::string text) { name_ = std::move(text); }
    const std::string& ID() const { return id_; }
    void ID(std::string text) { id_ = std::move(text); }

    std::int16_t RegCount() const { return static_cast<std::int16_t>(registerNames_.size()); }
    std::int16_t PropCount() const { return static_cast<std::int16_t>(propertyNames_.size()); }
    void AddRegister(std::string name) { registerNames_.push_back(std::move(name)); }
    void AddProperty(std::string name) { propertyNames_.push_back(std::move(name)); }

private:
    std::string name_;
    std::string id_;
    std::vector<std::string> registerNames_;
    std::vector<std::string> propertyNames_;
};

}

#pragma once

#include "ui/wizards/frame/IWizardProduct.h"

#include <cstdint>
#include <functional>
#include <string>

namespace tarvex {

class IWizardHost;
class RegisterObject;

/// Elements that are properties of the init file. One bit field: the value is that of its register. Several: field i
/// holds byte i of the value. The registers are asked of the controller each time. The product that has such elements
/// owns it.
class BitsetElements {
public:
    /// Gives the ASPI argument of a transfer of this register, and may address the register before.
    using AspiOf = std::function<std::int16_t(RegisterObject&)>;

    explicit BitsetElements(AspiOf aspiOf) : aspiOf_(std::move(aspiOf)) {}

    /// Hands over the frame, before everything else.
    void Attach(IWizardHost& host) { host_ = &host; }

    /// From 0 to the largest value of all its bits; the bar runs with the value. Raises 502 for an unknown element, as
    /// do the next two, and 6 for one of more than 31 bits.
    ElementBounds Bounds(const std::string& element) const;
    /// Reads the element's registers from the board, highest byte first. Belongs inside the host's Read.
    std::int32_t Read(const std::string& element) const;
    /// Sets and writes the element's registers, highest byte first. Belongs inside the host's Write.
    void Write(const std::string& element, std::int32_t value) const;
    /// Whether the named register is one of the element's; false for an unknown element.
    bool IsHeldBy(const std::string& element, const std::string& registerName) const;

    /// The value, of a skew element in nanoseconds.
    static std::string ValueText(const std::string& element, std::int32_t value);

private:
    IWizardHost* host_ = nullptr;
    AspiOf aspiOf_;
};

}

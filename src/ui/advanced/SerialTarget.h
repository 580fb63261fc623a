#pragma once

#include "platform/IUserPrompts.h"
#include "ui/advanced/IRegisterView.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tarvex {

class RegisterObject;

/// Where on the serial network the main window's board is: the enclosure and the connector that its two boxes hold. It
/// asks the user for what is missing there, and speaks to no hardware.
class SerialTarget {
public:
    SerialTarget(IRegisterView& view, IUserPrompts& prompts) : view_(view), prompts_(prompts) {}

    /// Asks until the box holds an address; false when the user cancelled.
    bool AskForAddress();
    /// Asks until the box holds a connector number, for a product that has connectors; false when the user cancelled.
    bool AskForConnector(const std::string& product);
    /// The address in its box; none while that holds no number.
    std::optional<std::int32_t> NodeId() const;
    /// Puts the address of an enclosure into its box.
    void ShowNode(std::int32_t nodeId);
    /// The address of the signal processor that serves a register of the product; kNoAspi when there is none. Raises 6
    /// when it does not fit.
    std::int16_t AspiOf(const RegisterObject& target, const std::string& product) const;

private:
    std::optional<std::int16_t> Connector() const;

    IRegisterView& view_;
    IUserPrompts& prompts_;
};

}

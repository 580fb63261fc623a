#include "ui/advanced/SerialTarget.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "comm/CalculateASPI.h"
#include "comm/api/IDevice.h"
#include "ui/advanced/ProductRules.h"

#include <limits>

namespace tarvex {

std::optional<std::int32_t> SerialTarget::NodeId() const
{
    const std::string text = view_.TargetAddress();
    const std::string_view address = TrimBlanks(text);
    if (!EqualsIgnoringCase(address.substr(0, 2), "0x"))
        return std::nullopt;
    return TryParseHex(address.substr(2));
}

std::optional<std::int16_t> SerialTarget::Connector() const
{
    const std::string text = view_.TargetConnector();
    const auto number = TryParseDecimal(TrimBlanks(text));
    using Limits = std::numeric_limits<std::int16_t>;
    if (!number || *number < Limits::min() || *number > Limits::max())
        return std::nullopt;
    return static_cast<std::int16_t>(*number);
}

bool SerialTarget::AskForAddress()
{
    while (!NodeId()) {
        const auto answer = prompts_.AskText("Enter the ZorbusID of the target enclosure: (Use the format 0x123456)",
                                             "Zorbus ID", "0x000000");
        if (!answer)
            return false;
        view_.ShowTarget(*answer, view_.TargetConnector());
    }
    return true;
}

bool SerialTarget::AskForConnector(const std::string& product)
{
    while (EnclosureTypeOfProduct(product) && !Connector()) {
        const auto answer = prompts_.AskText(
            "Enter the 1 based number of the connector on the target enclosure:", "Input Target Connector Number", "1");
        if (!answer)
            return false;
        view_.ShowTarget(view_.TargetAddress(), *answer);
    }
    return true;
}

void SerialTarget::ShowNode(std::int32_t nodeId) { view_.ShowTarget(HexText(nodeId), view_.TargetConnector()); }

std::int16_t SerialTarget::AspiOf(const RegisterObject& target, const std::string& product) const
{
    const auto enclosureType = EnclosureTypeOfProduct(product);
    const auto connector = Connector();
    return enclosureType && connector && *connector != 0 ? CalculateASPI(*connector, &target, *enclosureType) : kNoAspi;
}

}

#include "platform/zorbus/FaultRule.h"

namespace tarvex {

namespace {

/// Whether an address part that a rule may leave open is met.
bool Meets(std::optional<std::int32_t> wanted, std::optional<std::int32_t> actual)
{
    return !wanted || wanted == actual;
}

}

bool FaultRule::Strikes(const CallAddress& call)
{
    if (!Concerns(call))
        return false;
    if (after > 0) {
        --after;
        return false;
    }
    if (times > 0)
        --times;
    else if (times == 0)
        return false;
    return true;
}

bool FaultRule::Concerns(const CallAddress& call) const
{
    std::optional<std::int32_t> callAspi;
    std::optional<std::int32_t> callBase;
    std::optional<std::int32_t> callParameter;
    if (call.place) {
        callAspi = call.place->aspi;
        callBase = call.place->baseAddress;
        callParameter = call.place->parameterId;
    }
    return (operation.empty() || operation == call.operation) && Meets(port, call.port) && Meets(node, call.node) &&
           Meets(aspi, callAspi) && Meets(baseAddress, callBase) && Meets(parameterId, callParameter);
}

}

#include "ui/advanced/ProductRules.h"

#include "comm/CalculateASPI.h"
#include "comm/Links.h"

#include <array>
#include <string_view>

namespace tarvex {

namespace {

constexpr std::int32_t kAnalogTransmitter = 17;

struct Row {
    std::string_view word;
    const char* link;
    bool serialSettings;
    bool networkAddress;
};

constexpr std::array<Row, 3> kRows{{
    {"Vexlon", kHidDeviceType, false, false},
    {"Cendra", kSerialDeviceType, true, true},
    {"Ossary", kSerialDeviceType, true, true},
}};

}

ProductRules RulesForProduct(const std::string& product)
{
    for (const Row& row : kRows)
        if (product.find(row.word) != std::string::npos)
            return {row.link, row.serialSettings, row.networkAddress};
    return {"", false, true};
}

std::optional<std::int32_t> EnclosureTypeOfProduct(const std::string& product)
{
    if (product == "Ossary")
        return kMatrixEnclosure;
    if (product == "Cendra")
        return kTwistedPairEnclosure;
    if (product == "Ossary-Plus")
        return kAnalogTransmitter;
    return std::nullopt;
}

bool IsFixedAddressProduct(const std::string& product) { return product == "Ossary-Plus"; }

}

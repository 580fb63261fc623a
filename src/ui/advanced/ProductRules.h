#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tarvex {

/// What the main window does for a product when it becomes the current one.
struct ProductRules {
    std::string defaultLink; ///< link to select, or empty: the link stays
    bool serialSettings;     ///< whether "Serial Settings" makes sense
    bool networkAddress;     ///< whether address and connector are shown
};

/// The rules for a product name; the first rule whose word the name contains applies.
ProductRules RulesForProduct(const std::string& product);

/// The type code of the enclosures that a product of exactly this name sits in; none for one that has no connectors.
std::optional<std::int32_t> EnclosureTypeOfProduct(const std::string& product);

/// True for the product whose link takes a fixed address on the serial network.
bool IsFixedAddressProduct(const std::string& product);

}

#pragma once

#include <string>

namespace tarvex {

class Enclosure;
class IProductCatalogue;

/// Why the settings of one enclosure cannot be put into another one: what differs, in words; empty when they can.
/// Raises an error when a slot of just one of them holds a board that the catalogue knows.
std::string CompatableEnclosureConfig(const Enclosure& saved, const Enclosure& live,
                                      const IProductCatalogue& catalogue);

}

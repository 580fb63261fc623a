#pragma once

#include "config/MapFile.h"
#include "config/RegisterMap.h"
#include "platform/xml/XmlDocument.h"

#include <cstdint>

namespace tarvex {

/// Adds the properties of a property list (or of none) to a map whose registers are complete. Raises the init-file
/// error, the word-size error and the errors of properties and bitsets.
void ReadProperties(XmlElement propertyList, const MapFile& file, std::int16_t wordSize, RegisterMap& map);

}

#pragma once

#include "platform/zorbus/SimulatedNetwork.h"

#include <cstddef>
#include <string>

namespace tarvex {

class XmlDocument;

/// More parameters than this in one description are refused.
inline constexpr std::size_t kMostParameters = 200'000;

/// Makes the network that a loaded description describes. Raises 0x80040001 with a text that names the element for
/// whatever is missing in it or out of range.
SimulatedNetwork ReadNetwork(const XmlDocument& document);

}

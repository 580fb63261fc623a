#pragma once

#include "platform/zorbus/SimulatedNetwork.h"

#include <cstddef>
#include <string_view>

namespace tarvex {

class XmlDocument;

/// More parameters than this in one description are refused.
inline constexpr std::size_t kMostParameters = 200'000;

/// Makes the network that a description describes, loaded from this text. Raises 0x80040001 with a text that names the
/// element with its line and column for whatever is missing in it, not known or out of range.
SimulatedNetwork ReadNetwork(const XmlDocument& document, std::string_view text);

}

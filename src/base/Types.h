#pragma once

#include <cstdint>
#include <vector>

namespace tarvex {

/// Bytes of a value or a packet; index 0 is the least significant byte of a value.
using Bytes = std::vector<std::uint8_t>;

/// Flags of single bits; index 0 is the least significant bit.
using Bits = std::vector<bool>;

}

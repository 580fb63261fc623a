#pragma once

#include <cstdint>

namespace tarvex {

class RegisterObject;

/// Type codes of the enclosures whose connectors have eight signal-processor addresses each.
inline constexpr std::int32_t kTwistedPairEnclosure = 1;
inline constexpr std::int32_t kMatrixEnclosure = 24;

/// The network-wide address of the signal processor that serves a register of a connector (1 and up) in an enclosure of
/// this type; -1 when there is none. Raises 6 for a connector beyond 4096 where the address does not fit.
std::int16_t CalculateASPI(std::int16_t connector, const RegisterObject* target, std::int32_t enclosureType);

}

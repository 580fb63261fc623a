#pragma once

#include "base/Types.h"

#include <cstdint>
#include <string_view>

namespace tarvex {

// Conversions between bit strings, bit arrays, bytes and numbers. All are little-endian: index 0 is the least
// significant bit or byte. Every error is raised; what was written into an output before an error stays there.

/// Parses a bit string in list form ("0:7", "2,3,4", "1,4:7"; every digit is a whole position) into `bits`, which gets
/// at least 8 entries and one for every position named. Returns the number of marks made, counting repeats.
/// Raises 0x80040064 for any character but digits, comma and colon.
std::int16_t ParseBitString(std::string_view text, Bits& bits);

/// The eight bits of a byte.
Bits ByteToBits(std::uint8_t byte);

/// The byte of at most 8 bits; raises 0x80040001 for more.
std::uint8_t BitsToByte(const Bits& bits);

/// The byte of a bit string in digit form (most significant digit first; blanks at both ends are ignored; a character
/// other than 1 counts as 0). Raises 0x80040000 for more than 8 characters.
std::uint8_t BitStringToByte(std::string_view digits);

/// Eight bits, of which the first `count` (0 to 8) are those of `bits` from `start` on; raises 0x80040000 when `bits`
/// holds fewer.
Bits Extract8Bits(const Bits& bits, std::int16_t start, std::int16_t count);

/// The 32-bit value of the first `count` bytes; four bytes are read as two's complement. Raises 10 for more than 4,
/// 13 for none, 9 when `bytes` holds fewer.
std::int32_t BytesToLong(const Bytes& bytes, std::int32_t count);

/// Splits a non-negative value into 4 bytes and returns how many are significant, at least 1; raises 10 for a negative
/// value.
std::int16_t LongToBytes(std::int32_t value, Bytes& bytes);

/// The two bytes of a non-negative value; raises 10 for a negative one.
Bytes IntToBytes(std::int16_t value);

}

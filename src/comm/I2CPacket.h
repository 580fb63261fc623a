#pragma once

#include "base/Types.h"

#include <cstdint>

namespace tarvex {

/// Words of one byte each, as every register of a board on USB is transferred.
inline constexpr std::uint8_t kWidthCodeOneByte = 0x20;

/// The byte string that names one register of a board and carries its data: processor id and parameter id (two bytes
/// each, least significant first), a length byte (bits 7 to 5 bytes per word, bits 4 to 0 words), data. A plain value;
/// a new packet is not yet built and consists of four zero bytes.
class I2CPacket {
public:
    /// Builds the packet of the first `dataSize` bytes of `data`. `widthCode` is the number of bytes per word (0 to 7)
    /// shifted left by 5. Data beyond the last whole word are carried but not declared. Raises 700 and 701 for ids
    /// outside 0 to 65535, 704 for any other width code, 702 for more than 31 words, 9 when `data` holds fewer bytes;
    /// the packet then stays as it was.
    void Init(std::int32_t processorId, std::int32_t parameterId, const Bytes& data, std::uint8_t dataSize,
              std::uint8_t widthCode);
    /// Takes over the first `size` bytes of a buffer, but no more than it has. False for fewer than 5 bytes; the packet
    /// then stays as it was.
    bool CreatePacket(const Bytes& buffer, std::int16_t size);

    std::int32_t ProcessorID() const;
    std::int32_t ParameterID() const;
    /// The data that the length byte declares; raises 703 when it declares none, or more than the packet holds.
    Bytes data() const;
    /// Number of data bytes that the length byte declares; 0 before the packet is built.
    std::int16_t dataSize() const;
    /// Bytes per word (0 to 7); 0 before the packet is built.
    std::uint8_t dataWidth() const;
    /// Number of bytes of the whole packet.
    std::int32_t size() const { return static_cast<std::int32_t>(buffer_.size()); }
    /// The whole packet as it travels.
    const Bytes& buffer() const { return buffer_; }
    /// True when the packet holds every byte that its length byte declares.
    bool HoldsDeclaredData() const;

private:
    bool IsBuilt() const;
    std::int32_t IdAt(std::size_t offset) const;

    Bytes buffer_ = Bytes(4);
};

}

#pragma once

#include "base/Types.h"

#include <cstddef>
#include <string_view>

namespace tarvex {

enum class PacketDirection { Sent, Received };

/// Where links record their transfers. While no log is open nothing is written; writing never fails and never throws.
class IPacketLog {
public:
    virtual ~IPacketLog() = default;

    virtual bool IsPacketLogging() const noexcept = 0;
    /// One completed transfer: the first `count` bytes of the packet (at most all of them), and in `attempts` what it
    /// took: attempts or, on USB, the bytes that the system passed on.
    virtual void LogPacket(PacketDirection direction, const Bytes& packet, std::size_t count,
                           int attempts) noexcept = 0;
    /// One failed transfer with the link's error text.
    virtual void LogPacketError(PacketDirection direction, std::string_view text) noexcept = 0;
    /// A line of the link's own, unchanged.
    virtual void LogText(std::string_view line) noexcept = 0;
};

}

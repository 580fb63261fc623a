#include "shell/PacketLog.h"

#include "base/Numbers.h"

#include <algorithm>

namespace tarvex {

namespace {

std::string Prefix(std::string_view beginning, PacketDirection direction)
{
    return std::string(beginning) + (direction == PacketDirection::Sent ? "Tx: " : "Rx: ");
}

std::string HexBytes(const Bytes& packet, std::size_t count)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    count = std::min(count, packet.size());
    std::string text;
    text.reserve(3 * count);
    for (std::size_t i = 0; i < count; ++i) {
        if (packet[i] > 0xF)
            text += kDigits[packet[i] >> 4];
        text += kDigits[packet[i] & 0xF];
        text += ' ';
    }
    return text;
}

}

void PacketLog::OpenPacketLog(const std::string& prefix, std::int64_t instanceHandle) noexcept
{
    try {
        const std::string path = prefix + std::to_string(instanceHandle) + ".txt";
        stream_ = files_.OpenText(path, files_.FileExists(path) ? OpenMode::Append : OpenMode::Overwrite);
    } catch (...) {
        stream_.reset();
    }
}

void PacketLog::Close() noexcept { stream_.reset(); }

void PacketLog::LogHeader(const std::string& deviceType, std::int32_t productId, std::int32_t vendorId) noexcept
{
    WriteLine([&] {
        return "Beginning packet log for " + deviceType + ", PID: 0x" + ToHex(productId) + ", VID: 0x" +
               ToHex(vendorId) + " [" + clock_.NowText() + "]";
    });
}

void PacketLog::LogPacket(PacketDirection direction, const Bytes& packet, std::size_t count, int attempts) noexcept
{
    WriteLine([&] {
        return Prefix("Packet ", direction) + HexBytes(packet, count) + "  (Success with " + std::to_string(attempts) +
               ")  [" + clock_.NowText() + "]";
    });
}

void PacketLog::LogPacketError(PacketDirection direction, std::string_view text) noexcept
{
    WriteLine([&] { return Prefix("ERROR on Packet ", direction).append(text); });
}

void PacketLog::LogText(std::string_view line) noexcept
{
    WriteLine([&] { return line; });
}

template <class MakeLine> void PacketLog::WriteLine(const MakeLine& makeLine) noexcept
{
    if (!stream_)
        return;
    try {
        stream_->WriteLine(makeLine());
    } catch (...) {
        // A line that cannot be made is lost; the transfer that it tells of goes on.
    }
}

}

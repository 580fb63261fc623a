#pragma once

#include "comm/I2CPacket.h"

#include <cstddef>

namespace tarvex {

// Report ids of what is sent to a board on USB.
inline constexpr std::uint8_t kWriteReportId = 1;
inline constexpr std::uint8_t kReadReportId = 2;

/// Number of bytes that a report of this packet needs.
inline std::size_t ReportSize(const I2CPacket& packet) { return static_cast<std::size_t>(packet.size()) + 1; }

/// The output report that carries a packet, padded with zeros to `length`, which is at least ReportSize.
Bytes MakeReport(std::uint8_t reportId, const I2CPacket& packet, std::size_t length);

/// The buffer into which the answers to one request are received, each over the one before.
class InputReport {
public:
    explicit InputReport(std::size_t length);

    /// Takes an answer as the system delivered it; an empty one only sets the count to 0.
    void Receive(const Bytes& answer);
    /// True when the answer is for the register that the request report names.
    bool IsAnswerTo(const Bytes& request) const;
    /// Takes the bytes received apart; false when there are too few for a packet.
    bool ToPacket(I2CPacket& packet) const;

    const Bytes& Buffer() const { return buffer_; }
    /// Number of bytes of the last answer.
    std::size_t Count() const { return count_; }

private:
    Bytes buffer_;
    std::size_t count_ = 0;
};

}

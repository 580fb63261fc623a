#include "comm/HidReports.h"

#include "base/Numbers.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr std::size_t kAddressOffset = 1;
constexpr std::size_t kAddressEnd = 5;

}

Bytes MakeReport(std::uint8_t reportId, const I2CPacket& packet, std::size_t length)
{
    Bytes report(length);
    report[0] = reportId;
    std::copy(packet.buffer().begin(), packet.buffer().end(), report.begin() + 1);
    return report;
}

InputReport::InputReport(std::size_t length) : buffer_(std::max(length, kAddressEnd)) { buffer_[0] = kReadReportId; }

void InputReport::Receive(const Bytes& answer)
{
    count_ = std::min(answer.size(), buffer_.size());
    std::copy_n(answer.begin(), count_, buffer_.begin());
}

bool InputReport::IsAnswerTo(const Bytes& request) const
{
    return std::equal(request.begin() + kAddressOffset, request.begin() + kAddressEnd,
                      buffer_.begin() + kAddressOffset);
}

bool InputReport::ToPacket(I2CPacket& packet) const
{
    if (count_ == 0)
        return false;
    const Bytes received(buffer_.begin() + 1, buffer_.begin() + static_cast<std::ptrdiff_t>(count_));
    return packet.CreatePacket(received, ToInt16(static_cast<std::int64_t>(received.size()), "HIDDevice::ReadFrom"));
}

}

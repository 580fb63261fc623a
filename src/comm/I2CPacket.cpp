#include "comm/I2CPacket.h"

#include "base/Error.h"
#include "comm/Errors.h"
#include "model/BitConversions.h"

#include <algorithm>
#include <string>

namespace tarvex {

namespace {

constexpr std::size_t kIdBytes = 2;
constexpr std::size_t kParameterOffset = 2;
constexpr std::size_t kLengthOffset = 4;
constexpr std::size_t kHeaderSize = 5;
constexpr int kMaxWords = 31;
constexpr int kWidthShift = 5;
constexpr std::int32_t kHighestId = 0xFFFF;
constexpr const char* kInit = "I2CPacket: Init";

void CheckId(std::int32_t id, std::int32_t error, const char* what)
{
    if (id < 0 || id > kHighestId)
        Raise(error, kInit, what + std::to_string(id) + " out of range.  Range is 0 to 0xffff");
}

std::uint8_t WidthFromCode(std::uint8_t code)
{
    if ((code & kMaxWords) != 0)
        Raise(kErrDataWidth, "I2CPacket::dataWidth",
              "Invalid data width of " + std::to_string(code) +
                  ".  Must be hex: 00, 20, 40, 60, 80, A0, C0, or E0.  See protocol definition.");
    return static_cast<std::uint8_t>(code >> kWidthShift);
}

void CheckDataSize(std::uint8_t dataSize, std::uint8_t width, const Bytes& data)
{
    if (dataSize > width * kMaxWords)
        Raise(kErrTooMuchData, kInit,
              "Number of data bytes of " + std::to_string(dataSize) + " too big for width of " + std::to_string(width) +
                  ".  Max number of bytes is width * 31");
    if (data.size() < dataSize)
        RaiseRuntime(kErrSubscript, kInit);
}

std::uint8_t LengthByte(std::uint8_t dataSize, std::uint8_t width, std::uint8_t widthCode)
{
    return dataSize == 0 || width == 0 ? std::uint8_t{0} : static_cast<std::uint8_t>(dataSize / width | widthCode);
}

}

void I2CPacket::Init(std::int32_t processorId, std::int32_t parameterId, const Bytes& data, std::uint8_t dataSize,
                     std::uint8_t widthCode)
{
    CheckId(parameterId, kErrParameterId, "Parameter ID of ");
    CheckId(processorId, kErrProcessorId, "Signal Processor ID of ");
    const std::uint8_t width = WidthFromCode(widthCode);
    CheckDataSize(dataSize, width, data);

    Bytes packet(kHeaderSize + dataSize);
    Bytes id;
    LongToBytes(processorId, id);
    std::copy_n(id.begin(), kIdBytes, packet.begin());
    LongToBytes(parameterId, id);
    std::copy_n(id.begin(), kIdBytes, packet.begin() + kParameterOffset);
    packet[kLengthOffset] = LengthByte(dataSize, width, widthCode);
    std::copy_n(data.begin(), dataSize, packet.begin() + kHeaderSize);
    buffer_ = std::move(packet);
}

bool I2CPacket::CreatePacket(const Bytes& buffer, std::int16_t size)
{
    const std::size_t taken = size < 0 ? 0 : std::min(buffer.size(), static_cast<std::size_t>(size));
    if (taken < kHeaderSize)
        return false;
    buffer_ = Bytes(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(taken));
    return true;
}

std::int32_t I2CPacket::ProcessorID() const { return IdAt(0); }

std::int32_t I2CPacket::ParameterID() const { return IdAt(kParameterOffset); }

Bytes I2CPacket::data() const
{
    if (dataSize() == 0 || !HoldsDeclaredData())
        Raise(kErrNoData, "I2CPacket::data", "Data array is empty");
    const auto first = buffer_.begin() + kHeaderSize;
    return {first, first + dataSize()};
}

std::int16_t I2CPacket::dataSize() const
{
    return IsBuilt() ? static_cast<std::int16_t>((buffer_[kLengthOffset] & kMaxWords) * dataWidth()) : std::int16_t{0};
}

std::uint8_t I2CPacket::dataWidth() const
{
    return IsBuilt() ? static_cast<std::uint8_t>(buffer_[kLengthOffset] >> kWidthShift) : std::uint8_t{0};
}

bool I2CPacket::HoldsDeclaredData() const
{
    return buffer_.size() >= kHeaderSize + static_cast<std::size_t>(dataSize()) || !IsBuilt();
}

bool I2CPacket::IsBuilt() const { return buffer_.size() >= kHeaderSize; }

std::int32_t I2CPacket::IdAt(std::size_t offset) const
{
    const auto first = buffer_.begin() + static_cast<std::ptrdiff_t>(offset);
    return BytesToLong({first, first + kIdBytes}, kIdBytes);
}

}

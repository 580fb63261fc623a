#include "base/Error.h"
#include "base/Numbers.h"
#include "comm/Errors.h"
#include "comm/I2CPacket.h"
#include "comm/SerialZorbus.h"
#include "model/BitConversions.h"

#include <algorithm>
#include <limits>

namespace tarvex {

namespace {

constexpr const char* kReadFrom = "ZorbusSerial::ReadFrom";
constexpr const char* kWriteTo = "ZorbusSerial::WriteTo";

}

/// The library delivers a whole number, whatever the register's width: all of its bytes that were asked for count,
/// zeros included.
Bytes SerialZorbus::IDevice_ReadFrom(std::int32_t baseAddress, std::int32_t parameterId, std::int16_t& byteCount,
                                     std::int16_t aspi)
{
    CheckMayTransfer(kReadFrom, "Cannot read packet from ", aspi);
    const auto value =
        zone_.ReadParameter(nodeId_, aspi, ToInt16(baseAddress, kReadFrom), ToInt16(parameterId, kReadFrom));
    Bytes bytes;
    if (!value) {
        byteCount = 0;
        CountFailure();
        ReadFailure.Raise(0, 0);
        return bytes;
    }
    LongToBytes(*value, bytes);
    byteCount = std::min(byteCount, static_cast<std::int16_t>(bytes.size()));
    ReadSuccess.Raise(0, 0);
    return bytes;
}

void SerialZorbus::IDevice_WriteTo(std::int32_t baseAddress, std::int32_t parameterId, const Bytes& data,
                                   std::int16_t byteCount, std::int16_t aspi)
{
    CheckMayTransfer(kWriteTo, "Cannot write packet to ", aspi);
    I2CPacket().Init(baseAddress, parameterId, data, ToByte(byteCount, kWriteTo), kWidthCodeOneByte);
    const std::int32_t value = BytesToLong(data, byteCount);
    const bool isWritten =
        zone_.WriteParameter(nodeId_, aspi, ToInt16(baseAddress, kWriteTo), ToInt16(parameterId, kWriteTo), value);
    if (!isWritten)
        CountFailure();
    (isWritten ? WriteSuccess : WriteFailure).Raise(0, 0);
}

void SerialZorbus::CheckMayTransfer(const char* source, const char* what, std::int16_t aspi) const
{
    if (!connected_)
        Raise(kErrNotConnected, source, std::string(what) + kSerialDeviceType + " because not connected.");
    if (aspi == kNoAspi)
        Raise(kErrUnexpectedAspi, source, "ASPI required parameter");
}

void SerialZorbus::CountFailure()
{
    if (failureCount_ < std::numeric_limits<std::int16_t>::max())
        ++failureCount_;
}

}

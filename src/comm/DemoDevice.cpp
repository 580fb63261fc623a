#include "comm/DemoDevice.h"

#include "model/BitConversions.h"
#include "platform/IUserPrompts.h"

namespace tarvex {

namespace {

constexpr std::int64_t kParametersPerProcessor = 100;
constexpr std::int32_t kReadFill = 1;
constexpr std::int32_t kWriteFill = 128;

std::int64_t IndexOf(std::int32_t baseAddress, std::int32_t parameterId)
{
    return baseAddress * kParametersPerProcessor + parameterId;
}

std::int64_t LastIndexOf(std::int32_t baseAddress) { return (std::int64_t{baseAddress} + 1) * kParametersPerProcessor; }

}

void DemoDevice::IDevice_WriteTo(std::int32_t baseAddress, std::int32_t parameterId, const Bytes& data,
                                 std::int16_t byteCount, std::int16_t)
{
    const std::int64_t index = IndexOf(baseAddress, parameterId);
    memory_.Reach(index, LastIndexOf(baseAddress), kWriteFill);
    memory_.Write(index, BytesToLong(data, byteCount));
}

Bytes DemoDevice::IDevice_ReadFrom(std::int32_t baseAddress, std::int32_t parameterId, std::int16_t& byteCount,
                                   std::int16_t)
{
    const std::int64_t index = IndexOf(baseAddress, parameterId);
    memory_.Reach(index, LastIndexOf(baseAddress), kReadFill);
    Bytes bytes;
    byteCount = LongToBytes(memory_.Read(index), bytes);
    return bytes;
}

std::int32_t DemoDevice::IDevice_connect(std::int32_t, std::int32_t)
{
    connected_ = true;
    return 1;
}

std::int32_t DemoDevice::IDevice_ConnectToPath(const std::string& path)
{
    connected_ = true;
    return path.find("(0x") == std::string::npos ? 0 : 1;
}

std::int32_t DemoDevice::IDevice_Disconnect()
{
    connected_ = false;
    return 0;
}

std::string DemoDevice::IDevice_Browse()
{
    prompts_.BrowseForDevice({});
    return {};
}

}

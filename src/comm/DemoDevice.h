#pragma once

#include "comm/DemoMemory.h"
#include "comm/Links.h"
#include "comm/api/IDevice.h"

namespace tarvex {

class IUserPrompts;

/// A simulated board that keeps register values in memory, so that everything can be tried without hardware. It
/// declares no events. Reading and writing work also while it is not connected.
class DemoDevice : public IDevice {
public:
    explicit DemoDevice(IUserPrompts& prompts) : prompts_(prompts) {}

private:
    std::int32_t IDevice_ProductID() override { return 1; }
    std::int32_t IDevice_ProductVendorID() override { return 0; }
    std::string IDevice_productName() override { return "Demo device has no name"; }
    std::string IDevice_DeviceType() override { return kDemoDeviceType; }
    bool IDevice_IsConnected() override { return connected_; }
    std::string IDevice_DevicePath() override { return {}; }
    std::string IDevice_FirmwareVersion() override { return "v0.0"; }
    void IDevice_WriteTo(std::int32_t baseAddress, std::int32_t parameterId, const Bytes& data, std::int16_t byteCount,
                         std::int16_t aspi) override;
    Bytes IDevice_ReadFrom(std::int32_t baseAddress, std::int32_t parameterId, std::int16_t& byteCount,
                           std::int16_t aspi) override;
    std::int32_t IDevice_connect(std::int32_t productId, std::int32_t vendorId) override;
    std::int32_t IDevice_ConnectToPath(const std::string& path) override;
    std::int32_t IDevice_Disconnect() override;
    std::string IDevice_Browse() override;
    bool IDevice_VerifyCommunications(std::int32_t, std::int32_t) override { return true; }

    IUserPrompts& prompts_;
    bool connected_ = false;
    DemoMemory memory_;
};

}

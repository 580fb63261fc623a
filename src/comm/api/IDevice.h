#pragma once

#include "base/Types.h"

#include <cstdint>
#include <string>

namespace tarvex {

/// The ASPI argument of a register transfer that says: none, the base address alone addresses the processor.
inline constexpr std::int16_t kNoAspi = -1;

/// One communication link to a board. All operations block until they are done; the events that the concrete links
/// declare are raised inside the operation, before it returns. `Document` owns the link in use.
class IDevice {
public:
    virtual ~IDevice() = default;

    /// Product id of the attached device; 0 when unknown.
    std::int32_t ProductID() { return IDevice_ProductID(); }
    /// Vendor id of the attached device; 0 when unknown.
    std::int32_t ProductVendorID() { return IDevice_ProductVendorID(); }
    std::string productName() { return IDevice_productName(); }
    /// The text that names the kind of link.
    std::string DeviceType() { return IDevice_DeviceType(); }
    bool IsConnected() { return IDevice_IsConnected(); }
    std::string DevicePath() { return IDevice_DevicePath(); }
    std::string FirmwareVersion() { return IDevice_FirmwareVersion(); }

    /// Writes `byteCount` bytes of `data`, least significant first, to one register. A failed transfer is reported by
    /// the link's events; not being connected raises 303, an ASPI that the link cannot take raises 305.
    void WriteTo(std::int32_t baseAddress, std::int32_t parameterId, const Bytes& data, std::int16_t byteCount,
                 std::int16_t aspi)
    {
        IDevice_WriteTo(baseAddress, parameterId, data, byteCount, aspi);
    }

    /// Reads one register: its bytes, least significant first. `byteCount` is the number wanted and becomes the number
    /// delivered, 0 after a failed transfer. Errors as for WriteTo.
    Bytes ReadFrom(std::int32_t baseAddress, std::int32_t parameterId, std::int16_t& byteCount, std::int16_t aspi)
    {
        return IDevice_ReadFrom(baseAddress, parameterId, byteCount, aspi);
    }

    /// Finds and opens a device of this identity; 1 when connected, 0 when not.
    std::int32_t connect(std::int32_t productId, std::int32_t vendorId) { return IDevice_connect(productId, vendorId); }
    /// Opens the device that a text of Browse names; 1 when connected, 0 when not.
    std::int32_t ConnectToPath(const std::string& path) { return IDevice_ConnectToPath(path); }
    /// Closes the link; always 0.
    std::int32_t Disconnect() { return IDevice_Disconnect(); }
    /// Lets the user pick a device; the text that ConnectToPath takes, empty when nothing was picked.
    std::string Browse() { return IDevice_Browse(); }
    /// True when the board answers. Callers with no register in mind pass 0, 0.
    bool VerifyCommunications(std::int32_t baseAddress, std::int32_t parameterId)
    {
        return IDevice_VerifyCommunications(baseAddress, parameterId);
    }

private:
    virtual std::int32_t IDevice_ProductID() = 0;
    virtual std::int32_t IDevice_ProductVendorID() = 0;
    virtual std::string IDevice_productName() = 0;
    virtual std::string IDevice_DeviceType() = 0;
    virtual bool IDevice_IsConnected() = 0;
    virtual std::string IDevice_DevicePath() = 0;
    virtual std::string IDevice_FirmwareVersion() = 0;
    virtual void IDevice_WriteTo(std::int32_t baseAddress, std::int32_t parameterId, const Bytes& data,
                                 std::int16_t byteCount, std::int16_t aspi) = 0;
    virtual Bytes IDevice_ReadFrom(std::int32_t baseAddress, std::int32_t parameterId, std::int16_t& byteCount,
                                   std::int16_t aspi) = 0;
    virtual std::int32_t IDevice_connect(std::int32_t productId, std::int32_t vendorId) = 0;
    virtual std::int32_t IDevice_ConnectToPath(const std::string& path) = 0;
    virtual std::int32_t IDevice_Disconnect() = 0;
    virtual std::string IDevice_Browse() = 0;
    virtual bool IDevice_VerifyCommunications(std::int32_t baseAddress, std::int32_t parameterId) = 0;
};

}

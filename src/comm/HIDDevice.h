#pragma once

#include "base/Event.h"
#include "comm/HidReports.h"
#include "comm/Links.h"
#include "comm/api/IDevice.h"
#include "platform/hid/IHidServices.h"

#include <memory>
#include <string>
#include <vector>

namespace tarvex {

class IPacketLog;
class IUserPrompts;

/// A board attached directly by USB. Every register access is one packet in a HID report: a write is one output report,
/// a read is a request and an answer, each answer waited for at most a second. A failed transfer is told by an event,
/// counted and logged, not raised. It speaks to hardware inside its operations only.
class HIDDevice : public IDevice {
public:
    HIDDevice(IHidServices& services, IPacketLog& log, IUserPrompts& prompts)
        : services_(services), log_(log), prompts_(prompts)
    {}

    /// False while not connected, and once the node that was opened is gone.
    bool IsPresent() const { return board_ && board_->IsPresent(); }
    /// Empty unless the last connect or ConnectToPath was refused for want of rights; then a paragraph of two lines
    /// that names the device and the command that installs the rule file, which lies in `ruleFolder`.
    std::string OpenRefusedHint(const std::string& ruleFolder = ".") const;
    /// True when sending the last write or read request timed out. Such a board takes nothing, and every further
    /// transfer would stand still as long: a run ends there.
    bool LastTransferTimedOut() const { return sendTimedOut_; }

    Event<HIDDevice, std::int32_t, std::int32_t> ReadSuccess;
    Event<HIDDevice, std::int32_t, std::int32_t> ReadFailure;
    Event<HIDDevice, std::int32_t, std::int32_t> WriteSuccess;
    Event<HIDDevice, std::int32_t, std::int32_t> WriteFailure;
    Event<HIDDevice, std::int32_t> ConnectSuccess;
    Event<HIDDevice, std::int32_t> ConnectFailure; ///< declared with the others, not raised by this link
    Event<HIDDevice, std::int32_t> Disconnected;   ///< declared with the others, not raised by this link

private:
    enum class Answer { NotSent, None, Foreign, Received };

    std::int32_t IDevice_ProductID() override { return board_ ? attributes_.productId : 0; }
    std::int32_t IDevice_ProductVendorID() override { return board_ ? attributes_.vendorId : 0; }
    std::string IDevice_productName() override;
    std::string IDevice_DeviceType() override { return kHidDeviceType; }
    bool IDevice_IsConnected() override { return board_ != nullptr; }
    std::string IDevice_DevicePath() override;
    std::string IDevice_FirmwareVersion() override { return firmwareVersion_; }
    void IDevice_WriteTo(std::int32_t baseAddress, std::int32_t parameterId, const Bytes& data, std::int16_t byteCount,
                         std::int16_t aspi) override;
    Bytes IDevice_ReadFrom(std::int32_t baseAddress, std::int32_t parameterId, std::int16_t& byteCount,
                           std::int16_t aspi) override;
    std::int32_t IDevice_connect(std::int32_t productId, std::int32_t vendorId) override;
    std::int32_t IDevice_ConnectToPath(const std::string& path) override;
    std::int32_t IDevice_Disconnect() override;
    std::string IDevice_Browse() override;
    bool IDevice_VerifyCommunications(std::int32_t baseAddress, std::int32_t parameterId) override;

    std::vector<HidInterface> QueryForHID();
    std::shared_ptr<IHidBoard> Open(const std::string& path);
    bool OpenMatching(std::int32_t productId, std::int32_t vendorId);
    void Keep(std::shared_ptr<IHidBoard> board, const HidAttributes& attributes);

    void CheckMayTransfer(const char* source, const char* what, std::int16_t aspi) const;
    void NoteSending(IHidBoard& board, std::size_t written);
    void CountFailure();
    void FailRead();
    Answer Ask(const I2CPacket& packet, InputReport& input);
    Answer AwaitOwnAnswer(IHidBoard& board, const Bytes& request, const I2CPacket& packet, InputReport& input);
    Bytes TakeAnswer(const InputReport& input, std::size_t wanted, std::int16_t& byteCount);
    bool TryRegister(std::int32_t baseAddress, std::int32_t parameterId);

    IHidServices& services_;
    IPacketLog& log_;
    IUserPrompts& prompts_;
    std::shared_ptr<IHidBoard> board_; ///< held by a transfer, too: it may be closed while one is under way
    HidReportLengths lengths_;
    HidAttributes attributes_; ///< of the last connection; what is reconnected to
    std::string firmwareVersion_ = "unknown";
    std::string refusedPath_;
    std::int16_t failureCount_ = 0;
    bool sendTimedOut_ = false;
};

}

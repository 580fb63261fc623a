#pragma once

#include "base/Event.h"
#include "comm/Links.h"
#include "comm/SerialZorbusZone.h"
#include "comm/api/IDevice.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvex {

class IPacketLog;
class IQueryWindow;
class IUserPrompts;
struct ProgramState;

/// What a serial link stands on; all must outlive it.
struct SerialZorbusServices {
    std::function<std::shared_ptr<INorvaneSystem>()> norvaneSystem; ///< raises when the library cannot be had
    ProgramState& state;
    IPacketLog& packetLog;
    IErrorLog& errorLog;
    IUserPrompts& prompts;
    IWait& wait;
    ZoneRest& rest;
};

/// Boards in the slots of enclosures on the serial network, reached through the network library. It keeps the serial
/// settings, the open zone and the enclosure in use: every transfer goes to that enclosure and to no other. A failed
/// transfer is told by an event and counted, not raised. It speaks to hardware at its construction and in its
/// operations.
class SerialZorbus : public IDevice {
public:
    /// Makes the library and tries to open the zone; without settings, or with those of another kind than a serial
    /// port, on COM 1 at 9600 baud. Raises 304 when the library cannot be had.
    explicit SerialZorbus(SerialZorbusServices services, const std::optional<CommSettings>& settings = std::nullopt);

    /// Takes over port, baud rate and whether the link stays open. A change opens the zone again; a connected node that
    /// no longer answers then is disconnected. Raises 902 for settings that are not those of a serial port; any other
    /// failure is told in a box.
    void SetCommParameters(const CommSettings& settings);
    const CommSettings& Settings() const { return settings_; }
    /// Records the traffic of the library in a file; false when that could not be started.
    bool StartLogging(const std::string& path);
    /// Fills in the board id of each slot of the connected enclosure; their number, 0 when not connected.
    std::int16_t GetIOSlotPops(std::vector<std::int32_t>& boardIds);
    /// Saves the enclosure's current settings in it; false when that failed or while not connected.
    bool ResetCache();
    /// Brings the enclosure's saved settings back; false when that failed or while not connected.
    bool RestoreCache();
    /// Restarts the enclosure; true when it answered one of five pings then.
    bool Reboot();
    /// The record of a node that a Browse found, by its browse string. Raises 900 for a text without a node id, 13 for
    /// an id that is no number, 5 for a node that was not found.
    NodeRecord CreateNode(const std::string& browseString) const;
    /// Reads and writes that failed.
    std::int16_t FailureCount() const { return failureCount_; }

    Event<SerialZorbus, std::int32_t, std::int32_t> ReadSuccess;
    Event<SerialZorbus, std::int32_t, std::int32_t> ReadFailure;
    Event<SerialZorbus, std::int32_t, std::int32_t> WriteSuccess;
    Event<SerialZorbus, std::int32_t, std::int32_t> WriteFailure;
    Event<SerialZorbus, std::int32_t> ConnectSuccess; ///< declared with the others, not raised by this link
    Event<SerialZorbus, std::int32_t> ConnectFailure; ///< declared with the others, not raised by this link
    /// With 1 when a connection was made, and at the end of every ConnectToPath, also of one that failed.
    Event<SerialZorbus, std::int32_t> Connected;
    /// With 0 from every Disconnect, and when the node in use is left for another one.
    Event<SerialZorbus, std::int32_t> Disconnected;
    Event<SerialZorbus, const CommSettings&> SerialSettingChanged; ///< declared, not raised

private:
    std::int32_t IDevice_ProductID() override { return connected_ ? nodeId_ : 0; }
    std::int32_t IDevice_ProductVendorID() override { return connected_ ? kVendorId : 0; }
    std::string IDevice_productName() override;
    std::string IDevice_DeviceType() override { return kSerialDeviceType; }
    bool IDevice_IsConnected() override { return connected_; }
    std::string IDevice_DevicePath() override { return "The serial network has no device path"; }
    std::string IDevice_FirmwareVersion() override { return KnowsNode() ? record_.firmwareVersion : "unknown"; }
    void IDevice_WriteTo(std::int32_t baseAddress, std::int32_t parameterId, const Bytes& data, std::int16_t byteCount,
                         std::int16_t aspi) override;
    Bytes IDevice_ReadFrom(std::int32_t baseAddress, std::int32_t parameterId, std::int16_t& byteCount,
                           std::int16_t aspi) override;
    std::int32_t IDevice_connect(std::int32_t nodeId, std::int32_t vendorId) override;
    std::int32_t IDevice_ConnectToPath(const std::string& path) override;
    std::int32_t IDevice_Disconnect() override;
    std::string IDevice_Browse() override;
    bool IDevice_VerifyCommunications(std::int32_t baseAddress, std::int32_t parameterId) override;

    static std::int32_t ExtractZorbusID(const std::string& browseString);
    std::vector<std::string> DiscoverNodes();
    std::string EntryOf(std::int32_t nodeId);
    bool IsCancelled(const IQueryWindow* window) const;
    bool ConnectPatiently(std::int32_t nodeId);
    bool ConnectTo(std::int32_t nodeId) { return connect(nodeId, kVendorId) == 1; }
    void LeaveOtherNode(std::int32_t nodeId);
    /// Connected, and to the node of the record: a node may answer a ping and still not tell its record.
    bool KnowsNode() const { return connected_ && record_.nodeId == nodeId_; }
    bool Answers(std::int32_t nodeId);
    bool ReadRecordOf(std::int32_t nodeId);
    void CheckMayTransfer(const char* source, const char* what, std::int16_t aspi) const;
    void CountFailure();

    SerialZorbusServices services_;
    CommSettings settings_;
    SerialZorbusZone zone_;
    bool connected_ = false;
    std::int32_t nodeId_ = 0;
    std::int16_t failureCount_ = 0;
    NodeRecord record_; ///< of the node in use, unless that never answered
    std::map<std::int32_t, NodeRecord> nodeCache_;
};

}

#include "comm/SerialZorbus.h"

#include "base/IErrorLog.h"
#include "base/Numbers.h"
#include "base/ProgramState.h"
#include "comm/Errors.h"
#include "comm/SerialZorbusTexts.h"
#include "comm/api/IPacketLog.h"
#include "platform/IUserPrompts.h"

#include <utility>

namespace tarvex {

namespace {

constexpr int kPingsAfterReboot = 5;

/// The library, whose version is kept for display.
std::shared_ptr<INorvaneSystem> MakeLibrary(const SerialZorbusServices& services)
{
    std::shared_ptr<INorvaneSystem> library;
    try {
        library = services.norvaneSystem();
    } catch (const std::exception&) {
        services.errorLog.LogCurrentError();
    }
    if (!library)
        Raise(kErrNoNetworkLibrary, "SerialZorbus::Initialize", "Unable to get handle to Norvane.System.");
    services.state.libraryVersionText = "Library version: " + library->Version() + " (ZorbusLib.dll-NorvaneSystem.dll)";
    return library;
}

CommSettings StartSettings(const std::optional<CommSettings>& settings)
{
    if (settings && settings->kind == kSerialPortKind)
        return *settings;
    CommSettings standard;
    standard.kind = kSerialPortKind;
    return standard;
}

bool IsSamePort(const CommSettings& left, const CommSettings& right)
{
    return left.comPort == right.comPort && left.baudRate == right.baudRate && left.keepLinkOpen == right.keepLinkOpen;
}

}

SerialZorbus::SerialZorbus(SerialZorbusServices services, const std::optional<CommSettings>& settings)
    : services_(std::move(services)), settings_(StartSettings(settings)),
      zone_(MakeLibrary(services_), services_.wait, services_.errorLog, services_.rest)
{
    zone_.Open(settings_); // a port that cannot be opened now is tried again by whoever needs it
}

void SerialZorbus::SetCommParameters(const CommSettings& settings)
{
    if (settings.kind != kSerialPortKind)
        Raise(kErrSettingKind, "SerialZorbus::SetCommParameters", "Must be NVCommSetting_SerialPort.");
    const bool isSame = IsSamePort(settings, settings_);
    settings_ = settings;
    if (isSame)
        return;
    nodeCache_.clear(); // behind another port the same id is another node
    record_ = {};
    try {
        zone_.Open(settings_);
        if (connected_ && !ReadRecordOf(nodeId_))
            Disconnect();
    } catch (const std::exception&) {
        services_.errorLog.LogCurrentError();
        services_.prompts.Tell("Unexpected error while changing comm settings in SerialZorbus");
    }
}

bool SerialZorbus::StartLogging(const std::string& path) { return zone_.StartCapture(path); }

std::int16_t SerialZorbus::GetIOSlotPops(std::vector<std::int32_t>& boardIds)
{
    boardIds = connected_ ? zone_.ReadSlots(nodeId_) : std::vector<std::int32_t>();
    return ToInt16(static_cast<std::int64_t>(boardIds.size()), "SerialZorbus::GetIOSlotPops");
}

bool SerialZorbus::ResetCache() { return connected_ && zone_.Command(nodeId_, kCommandResetCache); }

bool SerialZorbus::RestoreCache() { return connected_ && zone_.Command(nodeId_, kCommandRestoreCache); }

bool SerialZorbus::Reboot()
{
    if (!connected_ || !zone_.Reboot(nodeId_))
        return false;
    for (int ping = 0; ping < kPingsAfterReboot; ++ping)
        if (zone_.Ping(nodeId_))
            return true;
    return false;
}

std::string SerialZorbus::IDevice_productName() { return KnowsNode() ? BrowseString(record_) : std::string(); }

std::int32_t SerialZorbus::IDevice_connect(std::int32_t nodeId, std::int32_t vendorId)
{
    if (connected_ && nodeId == nodeId_ && nodeId != 0 && vendorId != 0 && zone_.IsOpen())
        return 1;
    if (!zone_.IsOpen() && !zone_.Open(settings_))
        return 0;
    if (nodeId < 1 || vendorId <= 0)
        return 0;
    LeaveOtherNode(nodeId);
    if (!Answers(nodeId))
        return 0;
    nodeId_ = nodeId;
    connected_ = true;
    Connected.Raise(1);
    return 1;
}

/// Whoever asks for another node must never write to the old one, also when the new one turns out not to answer: then
/// no node is in use.
void SerialZorbus::LeaveOtherNode(std::int32_t nodeId)
{
    if (nodeId == nodeId_)
        return;
    nodeId_ = 0;
    if (std::exchange(connected_, false))
        Disconnected.Raise(0);
}

/// Whether the node is there; its record is known then.
bool SerialZorbus::Answers(std::int32_t nodeId)
{
    return nodeId == nodeId_ && nodeId == record_.nodeId ? zone_.Ping(nodeId) : ReadRecordOf(nodeId);
}

bool SerialZorbus::ReadRecordOf(std::int32_t nodeId)
{
    const std::optional<NodeRecord> record = zone_.ReadRecord(nodeId);
    if (record)
        record_ = *record;
    return record.has_value();
}

std::int32_t SerialZorbus::IDevice_Disconnect()
{
    if (connected_)
        zone_.Close();
    connected_ = false;
    Disconnected.Raise(0);
    return 0;
}

bool SerialZorbus::IDevice_VerifyCommunications(std::int32_t, std::int32_t)
{
    if (nodeId_ == 0) {
        services_.packetLog.LogText("ERROR: query all ping failed");
        return false;
    }
    services_.packetLog.LogText("SerialZorbus: Verifying Communications to " + HexText(nodeId_));
    if (!zone_.Ping(nodeId_)) {
        services_.packetLog.LogText("ERROR: ping failed to " + HexText(nodeId_));
        return false;
    }
    services_.packetLog.LogText("Communications verified with ping to " + HexText(nodeId_));
    connected_ = true;
    if (record_.nodeId != nodeId_)
        ReadRecordOf(nodeId_);
    return true;
}

}

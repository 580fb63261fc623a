#pragma once

#include "platform/zorbus/CommSettings.h"
#include "platform/zorbus/INorvaneSystem.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvex {

class IErrorLog;
class IWait;

/// What a link leaves behind at its port for the next one: until when the port has to rest that it left open at its
/// end, and a zone that the library failed to close, which keeps the port taken. One per program, owned by main.
struct ZoneRest {
    std::optional<std::chrono::steady_clock::time_point> until;
    ZoneHandle unclosed = kNoZone;
};

/// The zone of the network library that a serial link works through: at most one is open. Every operation but Open is
/// one library call; a call with a bad status counts as not done and is logged. Without an open zone nothing is called
/// and nothing is done. Its end closes the zone.
class SerialZorbusZone {
public:
    SerialZorbusZone(std::shared_ptr<INorvaneSystem> library, IWait& wait, IErrorLog& errorLog, ZoneRest& rest)
        : library_(std::move(library)), wait_(wait), errorLog_(errorLog), rest_(rest)
    {}
    ~SerialZorbusZone();
    SerialZorbusZone(const SerialZorbusZone&) = delete;
    SerialZorbusZone& operator=(const SerialZorbusZone&) = delete;

    bool IsOpen() const { return handle_ != kNoZone; }
    /// Opens a zone; closes the one that is open first, and lets the port rest.
    bool Open(const CommSettings& settings);
    void Close();

    std::vector<std::int32_t> Discover();
    /// The node's record; none when it did not answer.
    std::optional<NodeRecord> ReadRecord(std::int32_t nodeId);
    bool Ping(std::int32_t nodeId);
    bool Reboot(std::int32_t nodeId);
    bool Command(std::int32_t nodeId, std::int32_t command);
    /// The unsigned 16-bit entry of every slot.
    std::vector<std::int32_t> ReadSlots(std::int32_t nodeId);
    /// None when the read failed; a negative value is a failed read.
    std::optional<std::int32_t> ReadParameter(std::int32_t nodeId, std::int16_t aspi, std::int16_t baseAddress,
                                              std::int16_t parameterId);
    bool WriteParameter(std::int32_t nodeId, std::int16_t aspi, std::int16_t baseAddress, std::int16_t parameterId,
                        std::int32_t value);
    /// Works without an open zone, too.
    bool StartCapture(const std::string& path);

private:
    void AwaitRest();
    void CloseZone(ZoneHandle handle);
    bool Succeeded(NorvaneStatus status, const char* operation);

    std::shared_ptr<INorvaneSystem> library_;
    IWait& wait_;
    IErrorLog& errorLog_;
    ZoneRest& rest_;
    ZoneHandle handle_ = kNoZone;
};

}

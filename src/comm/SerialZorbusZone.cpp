#include "comm/SerialZorbusZone.h"

#include "base/IErrorLog.h"
#include "platform/IWait.h"

#include <algorithm>
#include <utility>

namespace tarvex {

namespace {

constexpr std::chrono::seconds kRestBeforeReopening{3};
constexpr std::chrono::seconds kRestAfterEnd{2};
constexpr const char* kCaptureExtension = ".zcp";

/// The first `count` entries, but no more than there are.
template <class Entry> void Shorten(std::vector<Entry>& entries, std::int16_t count)
{
    entries.resize(std::min(entries.size(), static_cast<std::size_t>(std::max<std::int16_t>(count, 0))));
}

}

SerialZorbusZone::~SerialZorbusZone()
{
    if (!IsOpen())
        return;
    Close();
    rest_.until = std::chrono::steady_clock::now() + kRestAfterEnd;
}

bool SerialZorbusZone::Open(const CommSettings& settings)
{
    if (IsOpen()) {
        Close();
        wait_.Pause(kRestBeforeReopening);
    }
    AwaitRest();
    CloseZone(std::exchange(rest_.unclosed, kNoZone));
    ZoneHandle handle = kNoZone;
    if (Succeeded(library_->OpenZone(settings.comPort, settings.baudRate, AsNorvaneBool(settings.keepLinkOpen), handle),
                  "OpenZone") &&
        handle >= 0)
        handle_ = handle;
    return IsOpen();
}

void SerialZorbusZone::AwaitRest()
{
    const auto until = std::exchange(rest_.until, std::nullopt);
    const auto now = std::chrono::steady_clock::now();
    if (until && *until > now)
        wait_.Pause(std::chrono::ceil<std::chrono::milliseconds>(*until - now));
}

void SerialZorbusZone::Close() { CloseZone(std::exchange(handle_, kNoZone)); }

void SerialZorbusZone::CloseZone(ZoneHandle handle)
{
    if (handle != kNoZone && !Succeeded(library_->CloseZone(handle), "CloseZone"))
        rest_.unclosed = handle; // tried again before the next opening
}

std::vector<std::int32_t> SerialZorbusZone::Discover()
{
    std::vector<std::int32_t> nodeIds;
    std::int16_t count = 0;
    if (!IsOpen() || !Succeeded(library_->DiscoverNodes(kDiscoverEnclosures, handle_, nodeIds, count), "DiscoverNodes"))
        return {};
    Shorten(nodeIds, count);
    return nodeIds;
}

std::optional<NodeRecord> SerialZorbusZone::ReadRecord(std::int32_t nodeId)
{
    NodeRecord record;
    NorvaneBool answered = kNorvaneFalse;
    if (!IsOpen() || !Succeeded(library_->ReadNodeRecord(nodeId, handle_, record, answered), "ReadNodeRecord") ||
        answered == kNorvaneFalse)
        return std::nullopt;
    return record;
}

bool SerialZorbusZone::Ping(std::int32_t nodeId)
{
    NorvaneBool answered = kNorvaneFalse;
    return IsOpen() && Succeeded(library_->PingNode(nodeId, handle_, answered), "PingNode") &&
           answered != kNorvaneFalse;
}

bool SerialZorbusZone::Reboot(std::int32_t nodeId)
{
    return IsOpen() && Succeeded(library_->RebootNode(nodeId, handle_), "RebootNode");
}

bool SerialZorbusZone::Command(std::int32_t nodeId, std::int32_t command)
{
    NorvaneBool done = kNorvaneFalse;
    return IsOpen() && Succeeded(library_->CommandNode(nodeId, command, 0, handle_, done), "CommandNode") &&
           done != kNorvaneFalse;
}

std::vector<std::int32_t> SerialZorbusZone::ReadSlots(std::int32_t nodeId)
{
    std::vector<std::int16_t> entries;
    std::int16_t count = 0;
    if (!IsOpen() || !Succeeded(library_->ReadSlotPopulation(nodeId, handle_, entries, count), "ReadSlotPopulation"))
        return {};
    Shorten(entries, count);
    std::vector<std::int32_t> boardIds(entries.size());
    std::transform(entries.begin(), entries.end(), boardIds.begin(),
                   [](std::int16_t entry) { return static_cast<std::uint16_t>(entry); });
    return boardIds;
}

std::optional<std::int32_t> SerialZorbusZone::ReadParameter(std::int32_t nodeId, std::int16_t aspi,
                                                            std::int16_t baseAddress, std::int16_t parameterId)
{
    std::int32_t value = 0;
    NorvaneBool done = kNorvaneFalse;
    const bool isRead =
        IsOpen() && Succeeded(library_->ReadParameter(nodeId, 0, aspi, baseAddress, parameterId, 1, 0, value, done),
                              "ReadParameter");
    return isRead && done != kNorvaneFalse && value >= 0 ? std::optional(value) : std::nullopt;
}

bool SerialZorbusZone::WriteParameter(std::int32_t nodeId, std::int16_t aspi, std::int16_t baseAddress,
                                      std::int16_t parameterId, std::int32_t value)
{
    NorvaneBool done = kNorvaneFalse;
    return IsOpen() &&
           Succeeded(library_->WriteParameter(nodeId, 0, aspi, baseAddress, parameterId, value, 1, 0, done),
                     "WriteParameter") &&
           done != kNorvaneFalse;
}

bool SerialZorbusZone::StartCapture(const std::string& path)
{
    NorvaneBool started = kNorvaneFalse;
    return Succeeded(library_->StartCaptureLog(path, kNorvaneTrue, kCaptureExtension, started), "StartCaptureLog") &&
           started != kNorvaneFalse;
}

bool SerialZorbusZone::Succeeded(NorvaneStatus status, const char* operation)
{
    if (status < 0)
        errorLog_.LogError(std::string("The network library failed at ") + operation, status, "SerialZorbus");
    return status >= 0;
}

}

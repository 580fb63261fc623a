#pragma once

#include "platform/zorbus/NodeRecord.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarvex {

/// The status of a library call: negative when it failed. Its results count only when it did not.
using NorvaneStatus = std::int32_t;
inline constexpr NorvaneStatus kNorvaneOk = 0;

/// The library's boolean.
using NorvaneBool = std::int16_t;
inline constexpr NorvaneBool kNorvaneTrue = -1;
inline constexpr NorvaneBool kNorvaneFalse = 0;
constexpr NorvaneBool AsNorvaneBool(bool value) { return value ? kNorvaneTrue : kNorvaneFalse; }

/// The library's handle of an open serial zone.
using ZoneHandle = std::int16_t;
inline constexpr ZoneHandle kNoZone = -1;

/// Command codes of CommandNode.
inline constexpr std::int32_t kCommandResetCache = 1;   ///< saves the live values
inline constexpr std::int32_t kCommandRestoreCache = 7; ///< brings the saved values back

/// What DiscoverNodes is asked for.
inline constexpr std::int32_t kDiscoverEnclosures = 19;

/// The maker's library of the serial device network. It is closed; this interface is where it plugs in. A zone is a
/// serial port that is open; a node is an enclosure that is reached through it. Calls block until they are done and
/// answer with a status, never with an error. A node that does not answer is no failure of the call where the result
/// has a boolean for it.
class INorvaneSystem {
public:
    virtual ~INorvaneSystem() = default;

    /// The library's version, such as 1.1.11.
    virtual std::string Version() = 0;
    /// Whether the library is at least of this version.
    virtual bool MinimumVersion(const std::string& major, const std::string& minor, const std::string& build) = 0;

    /// Opens a serial port; fails for one that is not there or is in use.
    virtual NorvaneStatus OpenZone(std::int16_t comPort, std::int32_t baudRate, NorvaneBool keepLinkOpen,
                                   ZoneHandle& zone) = 0;
    virtual NorvaneStatus CloseZone(ZoneHandle zone) = 0;
    /// Records the traffic from now on in the file, whose name gets the extension.
    virtual NorvaneStatus StartCaptureLog(const std::string& path, NorvaneBool start, const std::string& extension,
                                          NorvaneBool& started) = 0;
    virtual NorvaneStatus DiscoverNodes(std::int32_t kind, ZoneHandle zone, std::vector<std::int32_t>& nodeIds,
                                        std::int16_t& count) = 0;
    virtual NorvaneStatus ReadNodeRecord(std::int32_t nodeId, ZoneHandle zone, NodeRecord& record,
                                         NorvaneBool& answered) = 0;
    virtual NorvaneStatus PingNode(std::int32_t nodeId, ZoneHandle zone, NorvaneBool& answered) = 0;
    /// Restarts the node, which may be silent for a while then.
    virtual NorvaneStatus RebootNode(std::int32_t nodeId, ZoneHandle zone) = 0;
    virtual NorvaneStatus CommandNode(std::int32_t nodeId, std::int32_t command, std::int32_t argument, ZoneHandle zone,
                                      NorvaneBool& done) = 0;
    /// The board id in each slot of the enclosure, 0 for an empty one; a board id is an unsigned 16-bit number.
    virtual NorvaneStatus ReadSlotPopulation(std::int32_t nodeId, ZoneHandle zone, std::vector<std::int16_t>& entries,
                                             std::int16_t& count) = 0;
    /// Reads one parameter of the signal processor at an ASPI. `count` is 1; the zeros are reserved.
    virtual NorvaneStatus ReadParameter(std::int32_t nodeId, std::int32_t zero, std::int16_t aspi,
                                        std::int16_t baseAddress, std::int16_t parameterId, std::uint8_t count,
                                        std::int32_t lastZero, std::int32_t& value, NorvaneBool& done) = 0;
    virtual NorvaneStatus WriteParameter(std::int32_t nodeId, std::int32_t zero, std::int16_t aspi,
                                         std::int16_t baseAddress, std::int16_t parameterId, std::int32_t value,
                                         std::int32_t count, std::int32_t lastZero, NorvaneBool& done) = 0;
};

}

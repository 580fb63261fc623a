#pragma once

#include "platform/zorbus/CallJournal.h"
#include "platform/zorbus/FlashFile.h"
#include "platform/zorbus/INorvaneSystem.h"
#include "platform/zorbus/SimulatedNetwork.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tarvex {

class IErrorLog;
class IWait;

// What a failed call answers.
inline constexpr NorvaneStatus kNorvaneFailed = static_cast<NorvaneStatus>(0x80004005U);
inline constexpr NorvaneStatus kNorvaneNotFound = static_cast<NorvaneStatus>(0x80070002U);
inline constexpr NorvaneStatus kNorvaneAccessDenied = static_cast<NorvaneStatus>(0x80070005U);
inline constexpr NorvaneStatus kNorvaneBadHandle = static_cast<NorvaneStatus>(0x80070006U);
inline constexpr NorvaneStatus kNorvaneNoAnswer = static_cast<NorvaneStatus>(0x800705B4U);

/// Where a simulated network finds and leaves its things; an empty path means that there is none.
struct SimulatedNetworkFiles {
    std::string description; ///< the network; none, or none there, gives a library without ports
    bool isRequired = false; ///< a description that is not there is an error for the log
    std::string flash;       ///< saved values of the nodes
    std::string journal;     ///< every call, one line each
};

/// The files of this run: ZorbusNetwork.xml beside the program, its flash in `rootFolder`. The environment variable
/// TARVEX_NETWORK names another description, whose flash lies beside it; TARVEX_NETWORK_JOURNAL names a journal.
SimulatedNetworkFiles NetworkFilesOfThisRun(const std::string& programFolder, const std::string& rootFolder);

/// Stands in for the maker's library of the serial network, which cannot be had on this system: it plays the ports,
/// nodes and parameters of a description file. Live values last as long as this object, saved ones as their file. Main
/// makes one for the program.
class SimulatedNorvaneSystem : public INorvaneSystem {
public:
    /// What the library stands on; all must outlive it.
    struct Services {
        IFileSystem* files = nullptr;
        IWait* wait = nullptr;
        IErrorLog* errorLog = nullptr;
    };

    /// A library without ports.
    SimulatedNorvaneSystem() : SimulatedNorvaneSystem({}, {}) {}
    /// Reads the description, which takes all three services; what is wrong with it goes to the error log and leaves a
    /// library without ports. Raises 53 when the description says that the library is not installed.
    SimulatedNorvaneSystem(const SimulatedNetworkFiles& paths, const Services& services);

    std::string Version() override;
    /// The parts are compared as numbers; a part that is none is never reached.
    bool MinimumVersion(const std::string& major, const std::string& minor, const std::string& build) override;

    NorvaneStatus OpenZone(std::int16_t comPort, std::int32_t baudRate, NorvaneBool keepLinkOpen,
                           ZoneHandle& zone) override;
    NorvaneStatus CloseZone(ZoneHandle zone) override;
    /// A path that is a folder gets the name Zorbus.
    NorvaneStatus StartCaptureLog(const std::string& path, NorvaneBool start, const std::string& extension,
                                  NorvaneBool& started) override;
    NorvaneStatus DiscoverNodes(std::int32_t kind, ZoneHandle zone, std::vector<std::int32_t>& nodeIds,
                                std::int16_t& count) override;
    NorvaneStatus ReadNodeRecord(std::int32_t nodeId, ZoneHandle zone, NodeRecord& record,
                                 NorvaneBool& answered) override;
    NorvaneStatus PingNode(std::int32_t nodeId, ZoneHandle zone, NorvaneBool& answered) override;
    NorvaneStatus RebootNode(std::int32_t nodeId, ZoneHandle zone) override;
    /// Commands 1 and 7; any other is not done.
    NorvaneStatus CommandNode(std::int32_t nodeId, std::int32_t command, std::int32_t argument, ZoneHandle zone,
                              NorvaneBool& done) override;
    NorvaneStatus ReadSlotPopulation(std::int32_t nodeId, ZoneHandle zone, std::vector<std::int16_t>& entries,
                                     std::int16_t& count) override;
    NorvaneStatus ReadParameter(std::int32_t nodeId, std::int32_t zero, std::int16_t aspi, std::int16_t baseAddress,
                                std::int16_t parameterId, std::uint8_t count, std::int32_t lastZero,
                                std::int32_t& value, NorvaneBool& done) override;
    NorvaneStatus WriteParameter(std::int32_t nodeId, std::int32_t zero, std::int16_t aspi, std::int16_t baseAddress,
                                 std::int16_t parameterId, std::int32_t value, std::int32_t count,
                                 std::int32_t lastZero, NorvaneBool& done) override;

private:
    struct Zone {
        SimulatedPort* port;
        std::int32_t baudRate;
    };
    struct Outcome {
        NorvaneStatus status = kNorvaneOk;
        std::string results;
    };

    void ReadDescription(const SimulatedNetworkFiles& paths);
    NorvaneStatus Perform(const CallAddress& address, const std::string& arguments,
                          const std::function<Outcome()>& action);
    std::optional<FaultRule::Kind> FindFault(const CallAddress& address);
    Outcome OpenPort(std::int16_t comPort, std::int32_t baudRate, ZoneHandle& zone);
    ZoneHandle UnusedHandle();
    bool SaveToFlash(SimulatedNode& node);
    SimulatedNode* NodeInZone(std::int32_t nodeId, ZoneHandle zone);
    SimulatedNode* AnsweringNode(std::int32_t nodeId, ZoneHandle zone);
    SimulatedNode* Contact(std::int32_t nodeId, ZoneHandle zone);
    SimulatedParameter* FindParameter(std::int32_t nodeId, const ParameterPlace& place);

    Services services_;
    FlashFile flash_;
    CallJournal journal_;
    SimulatedNetwork network_;
    std::map<ZoneHandle, Zone> zones_;
    ZoneHandle lastHandle_ = 0;
};

}

#include "platform/zorbus/SimulatedNorvaneSystem.h"

#include "base/Error.h"
#include "base/IErrorLog.h"
#include "base/Version.h"
#include "platform/IWait.h"
#include "platform/xml/XmlDocument.h"
#include "platform/xml/XmlGuard.h"
#include "platform/zorbus/NetworkReader.h"

#include <cstdlib>
#include <limits>

namespace tarvex {

namespace {

std::string Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

}

SimulatedNetworkFiles NetworkFilesOfThisRun(const std::string& programFolder, const std::string& rootFolder)
{
    const std::string named = Variable("TARVEX_NETWORK");
    const std::string journal = Variable("TARVEX_NETWORK_JOURNAL");
    if (!named.empty())
        return {named, true, named + ".flash", journal};
    return {programFolder + "/ZorbusNetwork.xml", false, rootFolder + "/ZorbusNetwork.flash", journal};
}

SimulatedNorvaneSystem::SimulatedNorvaneSystem(const SimulatedNetworkFiles& paths, const Services& services)
    : services_(services), flash_(services.files, paths.flash), journal_(services.files)
{
    try {
        ReadDescription(paths);
        flash_.Load(network_);
    } catch (const Error&) {
        services_.errorLog->LogCurrentError();
    }
    if (!network_.isInstalled)
        RaiseRuntime(kErrFileNotFound, "SimulatedNorvaneSystem");
    for (SimulatedPort& port : network_.ports)
        for (SimulatedNode& node : port.nodes)
            for (auto& [place, parameter] : node.parameters)
                parameter.live = parameter.flash;
    if (!paths.journal.empty())
        journal_.Open(paths.journal);
}

void SimulatedNorvaneSystem::ReadDescription(const SimulatedNetworkFiles& paths)
{
    if (paths.description.empty() || (!paths.isRequired && !services_.files->FileExists(paths.description)))
        return;
    const std::string text = services_.files->ReadWholeFile(paths.description, kXmlMaxBytes);
    XmlDocument document;
    if (!document.LoadText(text))
        Raise(ObjectError(1), "SimulatedNorvaneSystem", paths.description + ": " + document.LastErrorText());
    network_ = ReadNetwork(document, text);
}

std::string SimulatedNorvaneSystem::Version() { return network_.version; }

bool SimulatedNorvaneSystem::MinimumVersion(const std::string& major, const std::string& minor,
                                            const std::string& build)
{
    return IsVersionAtLeast(Version(), major + "." + minor + "." + build);
}

/// One call: takes its time, fails where a rule says so, else does what it is for, and is written down.
NorvaneStatus SimulatedNorvaneSystem::Perform(const CallAddress& address, const std::string& arguments,
                                              const std::function<Outcome()>& action)
{
    const auto wait = network_.waits.find(address.operation);
    if (wait != network_.waits.end() && network_.waitFactor > 0)
        services_.wait->Pause(
            std::chrono::duration_cast<std::chrono::milliseconds>(wait->second * network_.waitFactor));
    Outcome outcome;
    if (const auto fault = FindFault(address); !fault)
        outcome = action();
    else if (*fault == FaultRule::Kind::BadStatus)
        outcome.status = kNorvaneFailed;
    else
        outcome.results = "refused";
    journal_.Write(address.operation + "(" + arguments + ")", outcome.status, outcome.results);
    return outcome.status;
}

std::optional<FaultRule::Kind> SimulatedNorvaneSystem::FindFault(const CallAddress& address)
{
    for (FaultRule& rule : network_.faults)
        if (rule.Strikes(address))
            return rule.kind;
    return std::nullopt;
}

SimulatedNode* SimulatedNorvaneSystem::NodeInZone(std::int32_t nodeId, ZoneHandle zone)
{
    const auto found = zones_.find(zone);
    if (found == zones_.end() || found->second.baudRate != found->second.port->baudRate)
        return nullptr;
    for (SimulatedNode& node : found->second.port->nodes)
        if (node.record.nodeId == nodeId)
            return &node;
    return nullptr;
}

/// The node, unless it is mute or still silent from a restart.
SimulatedNode* SimulatedNorvaneSystem::AnsweringNode(std::int32_t nodeId, ZoneHandle zone)
{
    SimulatedNode* node = NodeInZone(nodeId, zone);
    return node && !node->isMute && node->silence == 0 ? node : nullptr;
}

/// As AnsweringNode, and an unanswered attempt brings the end of the silence nearer.
SimulatedNode* SimulatedNorvaneSystem::Contact(std::int32_t nodeId, ZoneHandle zone)
{
    SimulatedNode* answering = AnsweringNode(nodeId, zone);
    SimulatedNode* node = NodeInZone(nodeId, zone);
    if (!answering && node && node->silence > 0)
        --node->silence;
    return answering;
}

/// Parameters are addressed without a zone: the node is looked for in all that are open.
SimulatedParameter* SimulatedNorvaneSystem::FindParameter(std::int32_t nodeId, const ParameterPlace& place)
{
    for (const auto& [handle, zone] : zones_)
        if (SimulatedNode* node = AnsweringNode(nodeId, handle)) {
            const auto found = node->parameters.find(place);
            return found == node->parameters.end() ? nullptr : &found->second;
        }
    return nullptr;
}

bool SimulatedNorvaneSystem::SaveToFlash(SimulatedNode& node)
{
    const auto before = node.parameters;
    try {
        flash_.Load(network_); // another program may have saved other nodes meanwhile
        for (auto& [place, parameter] : node.parameters)
            parameter.flash = parameter.live;
        flash_.Save(network_);
        return true;
    } catch (const Error&) {
        node.parameters = before;
        services_.errorLog->LogCurrentError();
        return false;
    }
}

ZoneHandle SimulatedNorvaneSystem::UnusedHandle()
{
    do
        lastHandle_ = static_cast<ZoneHandle>(lastHandle_ % std::numeric_limits<ZoneHandle>::max() + 1);
    while (zones_.contains(lastHandle_));
    return lastHandle_;
}

}

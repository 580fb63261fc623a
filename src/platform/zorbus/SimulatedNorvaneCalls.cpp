#include "base/Numbers.h"
#include "platform/zorbus/SimulatedNorvaneSystem.h"

#include <algorithm>
#include <filesystem>

namespace tarvex {

namespace {

std::string Comma(const std::string& text) { return ", " + text; }
std::string Comma(std::int32_t number) { return ", " + std::to_string(number); }

/// A file with the extension for a name; in a folder for the name of one.
std::string CaptureFile(const std::string& path, const std::string& extension)
{
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        return path + "/Zorbus" + extension;
    return path.ends_with(extension) ? path : path + extension;
}

}

NorvaneStatus SimulatedNorvaneSystem::OpenZone(std::int16_t comPort, std::int32_t baudRate, NorvaneBool keepLinkOpen,
                                               ZoneHandle& zone)
{
    zone = kNoZone;
    return Perform({"OpenZone", comPort}, std::to_string(comPort) + Comma(baudRate) + Comma(BoolText(keepLinkOpen)),
                   [&] { return OpenPort(comPort, baudRate, zone); });
}

SimulatedNorvaneSystem::Outcome SimulatedNorvaneSystem::OpenPort(std::int16_t comPort, std::int32_t baudRate,
                                                                 ZoneHandle& zone)
{
    const auto port = std::find_if(network_.ports.begin(), network_.ports.end(),
                                   [comPort](const SimulatedPort& each) { return each.number == comPort; });
    if (port == network_.ports.end())
        return {kNorvaneNotFound, {}};
    const bool isOpen =
        std::any_of(zones_.begin(), zones_.end(), [&port](const auto& each) { return each.second.port == &*port; });
    if (port->isBusy || isOpen)
        return {kNorvaneAccessDenied, {}};
    zone = UnusedHandle();
    zones_[zone] = {&*port, baudRate};
    return {kNorvaneOk, std::to_string(zone)};
}

NorvaneStatus SimulatedNorvaneSystem::CloseZone(ZoneHandle zone)
{
    return Perform({"CloseZone"}, std::to_string(zone), [&]() -> Outcome {
        return {zones_.erase(zone) == 0 ? kNorvaneBadHandle : kNorvaneOk, {}};
    });
}

NorvaneStatus SimulatedNorvaneSystem::StartCaptureLog(const std::string& path, NorvaneBool start,
                                                      const std::string& extension, NorvaneBool& started)
{
    started = kNorvaneFalse;
    return Perform({"StartCaptureLog"}, path + Comma(BoolText(start)) + Comma(extension), [&]() -> Outcome {
        started = AsNorvaneBool(start != kNorvaneFalse && journal_.Open(CaptureFile(path, extension)));
        return {kNorvaneOk, BoolText(started)};
    });
}

NorvaneStatus SimulatedNorvaneSystem::DiscoverNodes(std::int32_t kind, ZoneHandle zone,
                                                    std::vector<std::int32_t>& nodeIds, std::int16_t& count)
{
    nodeIds.clear();
    count = 0;
    return Perform({"DiscoverNodes"}, std::to_string(kind) + Comma(zone), [&]() -> Outcome {
        const auto found = zones_.find(zone);
        if (found == zones_.end())
            return {kNorvaneBadHandle, {}};
        for (const SimulatedNode& node : found->second.port->nodes)
            if (found->second.baudRate == found->second.port->baudRate)
                nodeIds.push_back(node.record.nodeId);
        count = static_cast<std::int16_t>(nodeIds.size());
        return {kNorvaneOk, std::to_string(count)};
    });
}

NorvaneStatus SimulatedNorvaneSystem::ReadNodeRecord(std::int32_t nodeId, ZoneHandle zone, NodeRecord& record,
                                                     NorvaneBool& answered)
{
    answered = kNorvaneFalse;
    return Perform({"ReadNodeRecord", {}, nodeId}, HexText(nodeId) + Comma(zone), [&]() -> Outcome {
        const SimulatedNode* node = Contact(nodeId, zone);
        answered = AsNorvaneBool(node != nullptr);
        if (node)
            record = node->record;
        return {kNorvaneOk, BoolText(answered)};
    });
}

NorvaneStatus SimulatedNorvaneSystem::PingNode(std::int32_t nodeId, ZoneHandle zone, NorvaneBool& answered)
{
    answered = kNorvaneFalse;
    return Perform({"PingNode", {}, nodeId}, HexText(nodeId) + Comma(zone), [&]() -> Outcome {
        answered = AsNorvaneBool(Contact(nodeId, zone) != nullptr);
        return {kNorvaneOk, BoolText(answered)};
    });
}

NorvaneStatus SimulatedNorvaneSystem::RebootNode(std::int32_t nodeId, ZoneHandle zone)
{
    return Perform({"RebootNode", {}, nodeId}, HexText(nodeId) + Comma(zone), [&]() -> Outcome {
        SimulatedNode* node = AnsweringNode(nodeId, zone);
        if (!node)
            return {kNorvaneNoAnswer, {}};
        for (auto& [place, parameter] : node->parameters)
            parameter.live = parameter.flash;
        node->silence = node->silenceOfReboot;
        return {};
    });
}

NorvaneStatus SimulatedNorvaneSystem::CommandNode(std::int32_t nodeId, std::int32_t command, std::int32_t argument,
                                                  ZoneHandle zone, NorvaneBool& done)
{
    done = kNorvaneFalse;
    return Perform({"CommandNode", {}, nodeId}, HexText(nodeId) + Comma(command) + Comma(argument) + Comma(zone),
                   [&]() -> Outcome {
                       SimulatedNode* node = AnsweringNode(nodeId, zone);
                       if (node && command == kCommandResetCache)
                           done = AsNorvaneBool(SaveToFlash(*node));
                       if (node && command == kCommandRestoreCache) {
                           for (auto& [place, parameter] : node->parameters)
                               parameter.live = parameter.flash;
                           done = kNorvaneTrue;
                       }
                       return {kNorvaneOk, BoolText(done)};
                   });
}

NorvaneStatus SimulatedNorvaneSystem::ReadSlotPopulation(std::int32_t nodeId, ZoneHandle zone,
                                                         std::vector<std::int16_t>& entries, std::int16_t& count)
{
    entries.clear();
    count = 0;
    return Perform({"ReadSlotPopulation", {}, nodeId}, HexText(nodeId) + Comma(zone), [&]() -> Outcome {
        const SimulatedNode* node = AnsweringNode(nodeId, zone);
        if (!node)
            return {kNorvaneNoAnswer, {}};
        entries = node->slots;
        count = static_cast<std::int16_t>(entries.size());
        return {kNorvaneOk, std::to_string(count)};
    });
}

NorvaneStatus SimulatedNorvaneSystem::ReadParameter(std::int32_t nodeId, std::int32_t zero, std::int16_t aspi,
                                                    std::int16_t baseAddress, std::int16_t parameterId,
                                                    std::uint8_t count, std::int32_t lastZero, std::int32_t& value,
                                                    NorvaneBool& done)
{
    value = 0;
    done = kNorvaneFalse;
    const ParameterPlace place{aspi, baseAddress, parameterId};
    return Perform({"ReadParameter", {}, nodeId, place},
                   HexText(nodeId) + Comma(zero) + Comma(aspi) + Comma(HexText(baseAddress)) +
                       Comma(HexText(parameterId)) + Comma(count) + Comma(lastZero),
                   [&]() -> Outcome {
                       const SimulatedParameter* parameter = FindParameter(nodeId, place);
                       done = AsNorvaneBool(parameter && parameter->isReadable);
                       if (done != kNorvaneFalse)
                           value = parameter->live;
                       return {kNorvaneOk, std::to_string(value) + Comma(BoolText(done))};
                   });
}

NorvaneStatus SimulatedNorvaneSystem::WriteParameter(std::int32_t nodeId, std::int32_t zero, std::int16_t aspi,
                                                     std::int16_t baseAddress, std::int16_t parameterId,
                                                     std::int32_t value, std::int32_t count, std::int32_t lastZero,
                                                     NorvaneBool& done)
{
    done = kNorvaneFalse;
    const ParameterPlace place{aspi, baseAddress, parameterId};
    return Perform({"WriteParameter", {}, nodeId, place},
                   HexText(nodeId) + Comma(zero) + Comma(aspi) + Comma(HexText(baseAddress)) +
                       Comma(HexText(parameterId)) + Comma(value) + Comma(count) + Comma(lastZero),
                   [&]() -> Outcome {
                       SimulatedParameter* parameter = FindParameter(nodeId, place);
                       done = AsNorvaneBool(parameter && parameter->isWritable);
                       if (done != kNorvaneFalse)
                           parameter->live = value;
                       return {kNorvaneOk, BoolText(done)};
                   });
}

}

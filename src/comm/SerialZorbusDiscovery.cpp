#include "base/Error.h"
#include "base/Numbers.h"
#include "comm/Errors.h"
#include "comm/SerialZorbus.h"
#include "comm/SerialZorbusTexts.h"
#include "platform/BusyPointer.h"
#include "platform/IUserPrompts.h"
#include "platform/IWait.h"

#include <algorithm>
#include <chrono>

namespace tarvex {

namespace {

constexpr std::chrono::seconds kSettleTime{1}; ///< before the network is searched, and between two attempts
constexpr const char* kExtractZorbusId = "SerialZorbus::ExtractZorbusID";

}

std::string SerialZorbus::IDevice_Browse()
{
    std::vector<std::string> entries = DiscoverNodes();
    std::erase(entries, std::string());
    if (entries.empty())
        return {};
    if (entries.size() == 1) {
        services_.prompts.Tell("Discovered a single enclosure: " + entries.front());
        return entries.front();
    }
    const auto chosen = services_.prompts.BrowseForDevice(entries);
    return chosen && *chosen < entries.size() ? entries[*chosen] : std::string();
}

/// An entry for every node on the network, also for those that do not answer; none when the user gave up, and one empty
/// entry when the port cannot be opened.
std::vector<std::string> SerialZorbus::DiscoverNodes()
{
    const BusyPointer pointer(services_.prompts);
    if (!zone_.IsOpen() && !zone_.Open(settings_))
        return {std::string()};
    const auto window = services_.prompts.ShowQueryProgress();
    services_.wait.Pause(kSettleTime);
    std::vector<std::string> entries;
    if (!IsCancelled(window.get()))
        for (const std::int32_t nodeId : zone_.Discover()) {
            services_.wait.Breathe();
            if (IsCancelled(window.get()))
                break;
            entries.push_back(EntryOf(nodeId));
        }
    return IsCancelled(window.get()) ? std::vector<std::string>() : entries;
}

std::string SerialZorbus::EntryOf(std::int32_t nodeId)
{
    const auto record = zone_.ReadRecord(nodeId);
    if (!record)
        return "no response from 0x" + ToHex(nodeId);
    nodeCache_.try_emplace(nodeId, *record);
    return BrowseString(*record);
}

bool SerialZorbus::IsCancelled(const IQueryWindow* window) const
{
    return services_.wait.Cancelled() || (window && window->Cancelled());
}

std::int32_t SerialZorbus::IDevice_ConnectToPath(const std::string& path)
{
    const auto idText = IdTextOf(path, false);
    const auto nodeId = idText ? TryParseHex(*idText) : std::nullopt;
    if (!nodeId)
        return 0;
    if (connected_ && *nodeId == nodeId_)
        return 1;
    if (connected_)
        Disconnect();
    if (ConnectTo(*nodeId) || ConnectPatiently(*nodeId))
        return 1;
    nodeId_ = *nodeId;
    Connected.Raise(1);
    return 0;
}

/// Two more attempts, for which the node is given time; the user may give up between them.
bool SerialZorbus::ConnectPatiently(std::int32_t nodeId)
{
    const auto window = services_.prompts.ShowQueryProgress();
    services_.wait.Pause(kSettleTime);
    for (int attempt = 0; attempt < 2 && !IsCancelled(window.get()); ++attempt)
        if (ConnectTo(nodeId))
            return true;
    return false;
}

NodeRecord SerialZorbus::CreateNode(const std::string& browseString) const
{
    const auto found = nodeCache_.find(ExtractZorbusID(browseString));
    if (found == nodeCache_.end())
        RaiseRuntime(kErrInvalidCall, "SerialZorbus::CreateNode");
    return found->second;
}

std::int32_t SerialZorbus::ExtractZorbusID(const std::string& browseString)
{
    const auto idText = IdTextOf(browseString, true);
    if (!idText)
        Raise(kErrBrowseString, kExtractZorbusId, "Invalid Browse string");
    return ParseHex(*idText, kExtractZorbusId);
}

}

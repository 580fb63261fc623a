#include "ui/wizards/cendra/CendraDiscovery.h"

#include "base/Error.h"
#include "base/ExitRequest.h"
#include "base/Numbers.h"
#include "comm/CalculateASPI.h"
#include "comm/DemoDevice.h"
#include "comm/Enclosure.h"
#include "comm/SerialZorbus.h"
#include "comm/SerialZorbusTexts.h"
#include "shell/Document.h"

#include <algorithm>
#include <array>

namespace tarvex {

namespace {

constexpr std::int32_t kHelpContents = 0;
constexpr const char* kSource = "Cendra_Wizard::Discover";

// Type codes that no enclosure has: one for all of them, and those from here on.
constexpr std::int32_t kAnyEnclosure = 19;
constexpr std::int32_t kFirstUnknownType = 25;

struct DemoEnclosures {
    const char* product;
    std::int32_t type;
    std::array<const char*, 2> browseStrings;
};

constexpr std::array<DemoEnclosures, 3> kDemos{{
    {"Ossary", kMatrixEnclosure, {"VantoraQ videoCage (0x1234)", "VantoraQ cage1 (0xc234)"}},
    {"Kestra-Fx", kTwistedPairEnclosure, {"Kestra videoCage(0x32C3)", "Kestra cage1 (0x1234)"}},
    {"Cendra", kTwistedPairEnclosure, {"Kestra videoCage (0x32C3)", "Kestra cage1 (0x1234)"}},
}};

std::shared_ptr<Enclosure> MakeEnclosure(const CendraTarget& target, const NodeRecord& record)
{
    auto enclosure = std::make_shared<Enclosure>(target.Host().Services().errorLog);
    enclosure->SetNodeBasics(record);
    return enclosure;
}

void DefineSlots(const CendraTarget& target, Enclosure& enclosure, const std::vector<std::int32_t>& boardIds)
{
    const auto count = ToInt16(static_cast<std::int64_t>(boardIds.size()), kSource);
    enclosure.DefineSlotPops(boardIds, count, target.Host().TheDocument().initFile().get());
}

bool IsUnrecognized(std::int32_t type) { return type == kAnyEnclosure || type >= kFirstUnknownType; }

}

void CendraDiscovery::Discover(const std::string& product)
{
    while (!TryDiscover(product))
        if (AskAgain() != Answer::Retry)
            ExitApplication(kExitViewFailed);
}

bool CendraDiscovery::TryDiscover(const std::string& product)
{
    const auto device = target_.Host().TheDocument().device(); // stays while it is at work
    if (!device)
        return false;
    if (device->DeviceType() == kDemoDeviceType)
        return OfferDemo(product);
    auto* link = dynamic_cast<SerialZorbus*>(device.get());
    return link && SearchNetwork(*link);
}

bool CendraDiscovery::OfferDemo(const std::string& product)
{
    IWizardHost& host = target_.Host();
    IUserPrompts& prompts = host.Services().prompts;
    const auto* demo =
        std::find_if(kDemos.begin(), kDemos.end(), [&](const auto& each) { return each.product == product; });
    if (demo == kDemos.end()) {
        prompts.Tell("Demo mode is not supported for " + product);
        ExitApplication(kExitNoDemo);
    }
    const auto chosen = prompts.BrowseForDevice({demo->browseStrings.begin(), demo->browseStrings.end()});
    if (!chosen)
        return false;
    const std::string path = demo->browseStrings.at(*chosen);
    NodeRecord record;
    record.nodeId = ParseHex(IdTextOf(path, true).value_or(""), kSource);
    record.enclosureType = demo->type;
    record.name = "demo enclosure";
    const auto enclosure = MakeEnclosure(target_, record);
    const std::int32_t boardId = host.Controller().BoardID();
    DefineSlots(target_, *enclosure, {boardId, boardId});
    host.Device().ConnectToPath(path);
    target_.Use(enclosure);
    target_.AddressController();
    return host.CheckConnection();
}

bool CendraDiscovery::SearchNetwork(SerialZorbus& link)
{
    const std::string path = BrowseUntilFound(link);
    if (path.empty())
        return false;
    const auto enclosure = MakeEnclosure(target_, link.CreateNode(path));
    const std::int32_t type = enclosure->EnclosureType();
    if (IsUnrecognized(type)) {
        target_.Host().Services().prompts.Tell(
            "Device type of enclosure created from browse string in unrecognized - " + EnclosureTypeName(type));
        return false;
    }
    if (!Connect(link, path))
        return false;
    DefineSlots(target_, *enclosure, ReadSlots(link));
    target_.Use(enclosure);
    return true;
}

/// Empty when the user gave up. A node that did not answer the search has no id in its entry and cannot be used.
std::string CendraDiscovery::BrowseUntilFound(SerialZorbus& link)
{
    for (;;) {
        std::string path;
        {
            const auto busy = target_.Host().Services().beginBusy();
            path = link.Browse();
        }
        if (IdTextOf(path, true))
            return path;
        if (!helpUser_(link))
            return {};
    }
}

bool CendraDiscovery::Connect(SerialZorbus& link, const std::string& path)
{
    IWizardHost& host = target_.Host();
    bool connected = false;
    {
        const auto busy = host.Services().beginBusy();
        connected = link.ConnectToPath(path) == 1;
    }
    if (!connected)
        GiveUp("Unexpected Failure to connect to " + path + ". Closing Tarvex.");
    if (!host.CheckConnection())
        return false;
    host.Controller().pid(link.ProductID());
    return true;
}

std::vector<std::int32_t> CendraDiscovery::ReadSlots(SerialZorbus& link)
{
    std::vector<std::int32_t> boardIds;
    {
        const auto busy = target_.Host().Services().beginBusy();
        if (link.GetIOSlotPops(boardIds) == 0)
            link.GetIOSlotPops(boardIds);
    }
    if (boardIds.empty())
        GiveUp("Unable to discover slot populations.  Exiting.");
    return boardIds;
}

Answer CendraDiscovery::AskAgain()
{
    IWizardHost& host = target_.Host();
    const auto device = host.TheDocument().device();
    MessageBoxRequest box{"Unable to establish communication on " + (device ? device->DeviceType() : std::string()),
                          "Communication Failure", Buttons::RetryCancelHelp};
    box.helpTopic = kHelpContents;
    return host.Services().prompts.ShowMessage(box);
}

void CendraDiscovery::GiveUp(const std::string& reason)
{
    target_.Host().Services().prompts.Tell(reason);
    ExitApplication(kExitViewFailed);
}

}

#include "comm/HIDDevice.h"

#include "base/Error.h"
#include "comm/Errors.h"
#include "platform/IUserPrompts.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tarvex {

namespace {

/// Ids of 0 belong to no device.
bool MatchesDevice(const HidAttributes& attributes, std::int32_t productId, std::int32_t vendorId)
{
    return productId != 0 && vendorId != 0 && attributes.productId == productId && attributes.vendorId == vendorId;
}

std::string VersionText(std::uint16_t versionNumber)
{
    return "v" + std::to_string(versionNumber >> 8) + "." + std::to_string(versionNumber & 0xFF);
}

bool IsUsable(const HidReportLengths& lengths) { return lengths.input != 0 && lengths.output != 0; }

}

std::string HIDDevice::OpenRefusedHint(const std::string& ruleFolder) const
{
    if (refusedPath_.empty())
        return {};
    return "You have no right to open " + refusedPath_ +
           ". Install the rule file 70-tarvex.rules with this command, then unplug the board and plug it in again:\n"
           "sudo cp \"" +
           ruleFolder +
           "/70-tarvex.rules\" /etc/udev/rules.d/ && sudo udevadm control --reload && sudo udevadm trigger";
}

std::string HIDDevice::IDevice_productName()
{
    const std::string name = board_ ? board_->ProductString() : std::string();
    return name.substr(0, name.find('\0'));
}

std::string HIDDevice::IDevice_DevicePath()
{
    if (!board_)
        return {};
    for (const HidInterface& candidate : QueryForHID())
        if (MatchesDevice(candidate.attributes, attributes_.productId, attributes_.vendorId))
            return candidate.path;
    return {};
}

std::int32_t HIDDevice::IDevice_connect(std::int32_t productId, std::int32_t vendorId)
{
    refusedPath_.clear();
    if (IsPresent() && MatchesDevice(attributes_, productId, vendorId))
        return 1;
    return OpenMatching(productId, vendorId) ? 1 : 0;
}

std::int32_t HIDDevice::IDevice_ConnectToPath(const std::string& path)
{
    refusedPath_.clear();
    const std::shared_ptr<IHidBoard> board = Open(path);
    if (!board || !IsUsable(board->ReportLengths()))
        return 0;
    const std::optional<HidAttributes> attributes = board->Attributes();
    if (!attributes)
        Raise(kErrHidSystem, "HIDDevice::GetHIDAttributes", "Unable to get HID Attributes.");
    Keep(board, *attributes);
    return 1;
}

std::int32_t HIDDevice::IDevice_Disconnect()
{
    board_.reset();
    return 0;
}

std::string HIDDevice::IDevice_Browse()
{
    std::vector<std::string> paths;
    for (const HidInterface& found : QueryForHID())
        paths.push_back(found.path);
    if (paths.empty()) {
        prompts_.Tell("There were no HID devices discovered on this system");
        return {};
    }
    const std::optional<std::size_t> chosen = prompts_.BrowseForDevice(paths);
    return chosen && *chosen < paths.size() ? paths[*chosen] : std::string();
}

std::vector<HidInterface> HIDDevice::QueryForHID()
{
    constexpr const char* kSource = "HIDDevice::QueryForHID";
    auto interfaces = services_.Enumerate();
    if (!interfaces)
        Raise(kErrHidSystem, kSource, "Could not attach to PnP node");
    if (std::any_of(interfaces->begin(), interfaces->end(), [](const auto& found) { return found.path.empty(); }))
        Raise(kErrHidSystem, kSource, "Could not get the name of this HID device");
    return std::move(*interfaces);
}

std::shared_ptr<IHidBoard> HIDDevice::Open(const std::string& path)
{
    std::shared_ptr<IHidBoard> board = services_.Open(path);
    if (!board && (services_.LastError() == EACCES || services_.LastError() == EPERM))
        refusedPath_ = path;
    return board;
}

// A candidate that cannot be used is passed over: the next one may be the board that is looked for.
bool HIDDevice::OpenMatching(std::int32_t productId, std::int32_t vendorId)
{
    for (const HidInterface& candidate : QueryForHID()) {
        if (!MatchesDevice(candidate.attributes, productId, vendorId))
            continue;
        const std::shared_ptr<IHidBoard> board = Open(candidate.path);
        const auto attributes = board ? board->Attributes() : std::nullopt;
        if (attributes && MatchesDevice(*attributes, productId, vendorId) && IsUsable(board->ReportLengths())) {
            Keep(board, *attributes);
            return true;
        }
    }
    return false;
}

void HIDDevice::Keep(std::shared_ptr<IHidBoard> board, const HidAttributes& attributes)
{
    lengths_ = board->ReportLengths();
    board_ = std::move(board);
    attributes_ = attributes;
    firmwareVersion_ = VersionText(attributes.versionNumber);
    refusedPath_.clear();
    sendTimedOut_ = false;
    ConnectSuccess.Raise(0);
}

}

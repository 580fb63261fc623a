#include "ui/wizards/cendra/CendraFiles.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "comm/Enclosure.h"
#include "config/IProgress.h"
#include "model/RegisterObject.h"
#include "shell/Document.h"
#include "ui/wizards/cendra/EnclosureMatch.h"
#include "ui/wizards/frame/NodeIdGuard.h"
#include "ui/wizards/frame/RegisterWrite.h"
#include "ui/wizards/frame/TransferStep.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr const char* kSource = "Cendra_Wizard::OpenFile";

}

bool CendraFiles::Open(const std::string& path)
{
    IWizardHost& host = target_.Host();
    if (!host.EnsureLink())
        return false;
    const auto progress = host.BeginProgress();
    host.Say("Opening file " + path + " ...");
    try {
        return Apply(path);
    } catch (const Error&) {
        host.Services().errorLog.LogCurrentError();
    }
    host.Services().prompts.Tell("Unexpected error opening file " + path);
    return false;
}

bool CendraFiles::Apply(const std::string& path)
{
    IWizardHost& host = target_.Host();
    TarvexData file(host.Services().state, host.Services().files);
    if (!file.InitToRead(path))
        Raise(ObjectError(1), kSource, "The file " + path + " is missing or too old");
    const auto tree = file.Tree(); // made once for the steps below
    const auto saved = EnclosureIn(file);
    if (!IsCompatible(file, *saved))
        return false;
    UseMapOf(path);
    for (const Enclosure::SlotProduct& each : saved->GetProducts())
        if (target_.IsOwn(each.product->Name()) && !WriteProduct(file, *saved, *each.product))
            return false;
    return true;
}

void CendraFiles::UseMapOf(const std::string& path) const
{
    IConfigController& controller = target_.Host().Controller();
    const NodeIdGuard kept(controller);
    if (!controller.InitDeviceFromFile(path))
        Raise(ObjectError(1), kSource, "The file " + path + " cannot be used for this product");
}

/// The one in use, when the file holds it; otherwise its first one.
std::shared_ptr<Enclosure> CendraFiles::EnclosureIn(const TarvexData& file) const
{
    IWizardHost& host = target_.Host();
    const auto enclosures = file.GetAllEnclosures(host.Services().errorLog);
    if (enclosures.empty())
        Raise(ObjectError(1), kSource, "The file " + file.Path() + " holds no enclosure");
    const std::int32_t address = target_.TheEnclosure().ZorbusAddress();
    const auto same = std::find_if(enclosures.begin(), enclosures.end(),
                                   [address](const auto& each) { return each->ZorbusAddress() == address; });
    const auto& found = same == enclosures.end() ? enclosures.front() : *same;
    const auto boardIds = file.GetSlotPops(found->ZorbusAddress());
    found->DefineSlotPops(boardIds, ToInt16(static_cast<std::int64_t>(boardIds.size()), kSource),
                          host.TheDocument().initFile().get());
    return found;
}

/// A file of other boards in an enclosure like this one would be written to whatever stands at its addresses.
bool CendraFiles::IsCompatible(const TarvexData& file, const Enclosure& saved) const
{
    IWizardHost& host = target_.Host();
    const Enclosure& live = target_.TheEnclosure();
    const std::string device = host.Controller().deviceName();
    std::string difference = CompatableEnclosureConfig(saved, live, *host.TheDocument().initFile());
    if (difference.empty() && !file.CheckForProduct(file.Path(), device))
        difference = "it holds no settings of " + device;
    if (difference.empty())
        return true;
    host.Services().prompts.Tell("The file " + file.Path() + " does not fit the enclosure " + live.Name() + ": " +
                                 difference + ".");
    return false;
}

/// False when the link is lost, as in the next two.
bool CendraFiles::WriteProduct(const TarvexData& file, const Enclosure& saved, IProduct& product)
{
    const auto busy = target_.Host().Services().beginBusy();
    const auto channels = product.channels();
    target_.Host().View().Progress().SetRange(product.Count(), 0);
    for (std::int16_t i = 0; i < product.Count(); ++i) {
        const std::int16_t connector = channels.at(static_cast<std::size_t>(i));
        const bool both = product.Direction() == static_cast<std::int32_t>(ChannelDirection::Both);
        const auto first = both ? ChannelDirection::Source : static_cast<ChannelDirection>(product.Direction());
        if (!WriteConnector(file, saved, product, first, connector) ||
            (both && !WriteConnector(file, saved, product, ChannelDirection::Destination, connector)))
            return false;
        target_.Host().View().Progress().TickProgress(1);
    }
    return true;
}

bool CendraFiles::WriteConnector(const TarvexData& file, const Enclosure& saved, IProduct& product,
                                 ChannelDirection side, std::int16_t connector)
{
    IWizardHost& host = target_.Host();
    const std::int16_t count = host.Controller().GetI2CRegisterCount();
    for (std::int16_t i = 0; i < count; ++i) {
        const auto each = host.Controller().GetI2CRegister(i);
        std::int32_t value = 0;
        if (!file.ReadChannelRegisterValue(saved, product.Name(), connector, side, each->Name(), value))
            continue;
        const TransferStep step = TryStep(host, [&] { return WriteRegister(*each, value, connector); });
        if (step == TransferStep::LinkLost)
            return false;
        if (step == TransferStep::Failed)
            host.Services().prompts.Tell("error writing register to " + host.Controller().deviceName());
    }
    return true;
}

bool CendraFiles::WriteRegister(RegisterObject& each, std::int32_t value, std::int16_t connector)
{
    IWizardHost& host = target_.Host();
    const std::int16_t aspi = target_.AspiAt(each, static_cast<std::uint16_t>(connector));
    if (aspi == kNoAspi) // no processor of this connector has the register
        return true;
    return host.Write(kSource, each.Name(), [&] { tarvex::WriteRegister(host, each, value, aspi); });
}

bool CendraFiles::AddTo(TarvexData& file)
{
    IWizardHost& host = target_.Host();
    if (!host.EnsureLink())
        return false;
    const auto busy = host.Services().beginBusy();
    const auto kept = host.TheDocument().device(); // stays while it is at work
    const auto progress = host.BeginProgress();
    return file.WriteEnclosureData(target_.TheEnclosure(), host.Controller(), *kept, &host.View().Progress());
}

}

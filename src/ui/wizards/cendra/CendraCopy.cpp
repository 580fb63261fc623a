#include "ui/wizards/cendra/CendraCopy.h"

#include "config/IProgress.h"
#include "config/PendingEdits.h"
#include "model/RegisterObject.h"
#include "ui/wizards/cendra/CendraTree.h"
#include "ui/wizards/frame/RegisterWrite.h"
#include "ui/wizards/frame/TransferStep.h"

#include <memory>
#include <set>

namespace tarvex {

namespace {

constexpr const char* kSource = "Cendra_Wizard::LoadAllConfigElements";
constexpr const char* kToggle = "SelectMultiChannels";

}

void CendraCopy::SelectMultiChannels()
{
    IWizardFrameView& view = target_.Host().View();
    const bool on = !view.IsEntryChecked(kToggle);
    view.CheckEntry(kToggle, on);
    view.ShowTreeChecks(on);
    view.EnableEntry("Selected", on);
}

void CendraCopy::LoadAllConfigElements()
{
    if (!target_.HasConnector() || !target_.IsOwn(target_.Product()))
        return;
    std::set<std::uint16_t> done{target_.Connector()};
    std::string foreign;
    std::shared_ptr<void> progress;
    for (const std::string& key : target_.Host().View().CheckedNodes()) {
        const auto leaf = LeafOfKey(key);
        if (leaf && !target_.IsOwn(leaf->product))
            foreign += (foreign.empty() ? "" : ", ") + std::to_string(leaf->connector);
        if (!leaf || !target_.IsOwn(leaf->product) || !done.insert(static_cast<std::uint16_t>(leaf->connector)).second)
            continue;
        if (!progress)
            progress = target_.Host().BeginProgress();
        if (!CopyTo(static_cast<std::uint16_t>(leaf->connector)))
            return;
    }
    if (!foreign.empty())
        target_.Host().Say("Not copied to boards of another product: connector " + foreign);
}

/// False when the link is lost.
bool CendraCopy::CopyTo(std::uint16_t connector)
{
    IWizardHost& host = target_.Host();
    const auto busy = host.Services().beginBusy();
    const std::int16_t count = host.Controller().GetI2CRegisterCount();
    host.View().Progress().SetRange(count, 0);
    host.Say("Copying profile to connector " + std::to_string(connector));
    for (std::int16_t i = 0; i < count; ++i) {
        const auto each = host.Controller().GetI2CRegister(i);
        const TransferStep step = TryStep(host, [&] { return CopyRegister(*each, connector); });
        if (step == TransferStep::LinkLost)
            return false;
        if (step == TransferStep::Failed)
            host.Services().prompts.Tell("error writing register for connector " + std::to_string(connector) + " to " +
                                         host.Controller().deviceName());
        host.View().Progress().TickProgress(1);
    }
    return true;
}

/// What could not be read is not written: the register still holds something else.
bool CendraCopy::CopyRegister(RegisterObject& each, std::uint16_t connector)
{
    IWizardHost& host = target_.Host();
    const std::int16_t from = target_.Aspi(each);
    const std::int16_t to = target_.AspiAt(each, connector);
    if (from == kNoAspi || to == kNoAspi) // no processor of a connector has the register
        return true;
    std::int32_t value = 0;
    if (!host.Read(kSource, each.Name(), [&] { value = each.ReadValue(host.Device(), from); }))
        return false;
    const PendingEdits kept(host.Controller()); // what the current connector does not hold is not copied
    return host.Write(kSource, each.Name(), [&] { WriteRegister(host, each, value, to); });
}

}

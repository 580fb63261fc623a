#include "ui/wizards/vexlon/VexlonTarget.h"

#include "base/Error.h"
#include "config/IProgress.h"
#include "model/RegisterObject.h"
#include "ui/wizards/frame/NavigationTree.h"
#include "ui/wizards/frame/WizardFrame.h"

#include <utility>

namespace tarvex {

namespace {

constexpr int kFailuresTolerated = 5; ///< after more of them the board is not asked any further

}

void VexlonTarget::Show(const std::string& product)
{
    IWizardHost& host = board_.Host();
    tree_ = NavigationTreeOf(product);
    name_ = host.Controller().deviceName();
    unread_ = true;
    host.View().ShowTree(tree_);
    host.View().SelectNode(name_);
    if (host.CheckConnection())
        TakeOver();
}

bool VexlonTarget::NeedsChannel() const
{
    const TreeNode* node = FindNode(tree_, name_);
    return node && !node->children.empty();
}

void VexlonTarget::NodeClicked(const std::string& key)
{
    const TreeNode* node = FindNode(tree_, key);
    IUserPrompts& prompts = board_.Host().Services().prompts;
    if (node && !node->children.empty()) {
        prompts.Tell("Please select a Leaf node in the tree.");
        board_.Host().View().SelectNode(name_); // the mark stays on the board that is adjusted
    }
    if (!node || !IsFiberChannel(key))
        return;
    if (Connect(key)) {
        if (name_ != key)
            board_.Host().DropDataFile(); // it is the other channel's, and not to be overwritten with this one's
        name_ = key;
        mode_.ForgetChanges();
    } else {
        prompts.Tell("Unable to connect to " + key + ". Restoring last good target.");
        RestoreLast();
    }
    TakeOver();
}

bool VexlonTarget::Connect(const std::string& device)
{
    if (!board_.Host().Controller().InitDevice(device))
        return false;
    unread_ = true;
    Reconnect();
    return board_.Host().CheckConnection();
}

void VexlonTarget::Reconnect()
{
    IWizardHost& host = board_.Host();
    const auto busy = host.Services().beginBusy();
    try {
        host.Device().Disconnect();
        host.Device().connect(host.Controller().pid(), host.Controller().vid());
    } catch (const Error&) {
        host.Services().errorLog.LogCurrentError(); // the check that follows finds the link down
    }
}

void VexlonTarget::RestoreLast()
{
    IWizardHost& host = board_.Host();
    host.View().SelectNode(name_);
    host.Controller().InitDevice(name_);
    unread_ = true;
    Reconnect();
    if (!host.EnsureLink())
        Raise(kErrWriteFailed, "Vexlon_Wizard::TreeView1.NodeClick",
              "Communication failure returning back to last known good target.");
}

void VexlonTarget::TakeOver()
{
    IWizardHost& host = board_.Host();
    std::optional<std::string> failed;
    {
        const auto progress = host.BeginProgress();
        failed = ReadRegisters(0);
        unread_ = failed.has_value();
        if (failed)
            host.Services().prompts.Tell("failure reading " + *failed + " from device " + host.Device().DeviceType() +
                                         ". Aborting read.");
    }
    host.SelectAgain();
    if (!failed && !host.CurrentElement().empty()) // otherwise the panel says why the element cannot be adjusted
        host.Say("Success connecting and retrieving data.");
}

void VexlonTarget::CatchUp()
{
    if (!std::exchange(unread_, false))
        return;
    ReadRegisters(kFailuresTolerated);
}

/// The name of the first register that could not be read.
std::optional<std::string> VexlonTarget::ReadRegisters(int failuresTolerated)
{
    IWizardHost& host = board_.Host();
    const auto busy = host.Services().beginBusy();
    const std::int16_t count = host.Controller().GetI2CRegisterCount();
    host.View().Progress().SetRange(count, 1);
    std::optional<std::string> failed;
    int failures = 0;
    for (std::int16_t i = 0; i < count && failures <= failuresTolerated; ++i) {
        const std::string name = host.Controller().GetI2CRegister(i)->Name();
        if (ReadOne(name))
            continue;
        ++failures;
        failed = failed.value_or(name);
    }
    mode_.ReadBackResolution();
    return failed;
}

bool VexlonTarget::ReadOne(const std::string& name)
{
    IWizardHost& host = board_.Host();
    const int before = host.Failures();
    try {
        host.Controller().ReadI2CRegister(host.Device(), name);
    } catch (const Error&) {
        host.Services().errorLog.LogCurrentError();
        return false;
    }
    return host.Failures() == before;
}

}

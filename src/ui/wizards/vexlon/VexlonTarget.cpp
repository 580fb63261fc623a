#include "ui/wizards/vexlon/VexlonTarget.h"

#include "base/Error.h"
#include "ui/wizards/frame/NavigationTree.h"
#include "ui/wizards/frame/WizardFrame.h"

namespace tarvex {

void VexlonTarget::Show(const std::string& product)
{
    IWizardHost& host = board_.Host();
    tree_ = NavigationTreeOf(product);
    name_ = host.Controller().deviceName();
    image_.Forget();
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
    if (!board_.Host().MayDropEdits())
        return board_.Host().View().SelectNode(name_);
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
    image_.Forget();
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
    image_.Forget();
    Reconnect();
    if (!host.EnsureLink())
        Raise(kErrWriteFailed, "Vexlon_Wizard::TreeView1.NodeClick",
              "Communication failure returning back to last known good target.");
}

void VexlonTarget::TakeOver()
{
    IWizardHost& host = board_.Host();
    const auto failed = image_.ReadAll();
    if (failed)
        host.Services().prompts.Tell("failure reading " + *failed + " from device " + host.Device().DeviceType() +
                                     ". Aborting read.");
    host.SelectAgain();
    if (failed || host.CurrentElement().empty()) // the panel says why the element cannot be adjusted
        return;
    host.Say(image_.WasStopped() ? "Reading was stopped with Escape." : "Success connecting and retrieving data.");
}

}

#include "ui/wizards/cendra/Cendra.h"

#include "base/ExitRequest.h"
#include "base/Numbers.h"
#include "comm/Enclosure.h"
#include "comm/SerialZorbus.h"
#include "shell/Document.h"
#include "shell/IMainView.h"
#include "ui/wizards/cendra/CendraTree.h"

#include <array>
#include <limits>
#include <utility>

namespace tarvex {

namespace {

/// Up to a range, the large step is the range divided by a number.
struct StepTier {
    std::int32_t upTo;
    std::int32_t divisor;
};

constexpr std::array<StepTier, 4> kStepTiers{
    {{100, 10}, {1000, 50}, {10000, 100}, {std::numeric_limits<std::int32_t>::max(), 500}}};
constexpr std::int32_t kLargestSingleStepRange = 10;

}

Cendra::Cendra(CommSettings& settings, std::unique_ptr<ISerialWizardDialogs> dialogs)
    : SerialWizardProduct(settings, std::move(dialogs), StepsOf(*this)),
      discovery_(target_, [this](SerialZorbus&) { return menu_.AskToRetry(); })
{}

WizardDescription Cendra::Describe()
{
    WizardDescription description = SerialDescription();
    description.windowName = "Cendra_Wizard";
    description.viewName = "Cendra Wizard";
    description.designCaption = "Cendra - Display Adjustments";
    description.captions = {"&Save", "Save &As", "&Edit", "&Undo last change", "&Options"};
    description.closeQuestionEnd = "?";
    description.savesUnderOldNameOnClose = true;
    MenuEntry selected{"Selected", "&Copy to Selected"};
    selected.enabled = false;
    selected.entries = {{"LoadAllConfigElements", "Current &Profile", [this] { copy_.LoadAllConfigElements(); }}};
    description.options = {
        {"SelectMultiChannels", "Enable &Multiple Selection", [this] { copy_.SelectMultiChannels(); }, true},
        selected,
        flash_.SaveEntry("&Save to System"),
        flash_.RestoreEntry("&Restore Current System Settings"),
        menu_.SettingsEntry("Serial &Port Settings"),
        menu_.PortEntry("&Enable COM x"),
        {"DecreaseHSyncPulseWidth", "&Decrease Horizontal Pulse Width", [this] { pulse_.Decrease(); }},
        {"IncreaseHSyncPulseWidth", "&Increase Horizontal Pulse Width", [this] { pulse_.Increase(); }},
        menu_.LoggingEntry("Start &Logging")};
    return description;
}

void Cendra::Attach(IWizardHost& host)
{
    SerialWizardProduct::Attach(host);
    target_.Attach(host);
}

/// The wizard reads what its element needs; the register window shows, and changes bit by bit, every register.
void Cendra::CatchUp()
{
    if (target_.Host().TheDocument().IsMainViewVisible())
        image_.CatchUp();
}

void Cendra::SetCurrentProduct(const std::string& product)
{
    product_ = product;
    discovery_.Discover(product);
    ShowTree();
}

void Cendra::ShowTree()
{
    IWizardHost& host = target_.Host();
    IUserPrompts& prompts = host.Services().prompts;
    if (product_ == "Kestra-Fx") {
        prompts.Tell(product_ + " not supported in this version");
        return;
    }
    const auto tree = CendraTreeOf(target_.TheEnclosure());
    const std::string first = FirstLeafOf(tree);
    host.View().ShowTree(tree);
    if (first.empty()) {
        prompts.Tell("No products discovered.  Exiting.");
        ExitApplication(kExitViewFailed);
    }
    host.View().SelectNode(first);
    NodeClicked(first);
}

void Cendra::NodeClicked(const std::string& key)
{
    if (key != node_ && LeafOfKey(key) && !target_.Host().MayDropEdits())
        return target_.Host().View().SelectNode(node_);
    if (target_.Choose(key)) {
        node_ = key;
        image_.Forget();
        target_.Host().TellOtherViews(kEverythingChanged, "");
    } else {
        target_.Host().View().SelectNode(node_); // the mark stays on the connector that is adjusted
    }
    target_.Host().SelectAgain();
}

bool Cendra::UpdateUI(std::int32_t kind, const std::string& name)
{
    if (kind == kRegisterChanged)
        return elements_.IsHeldBy(target_.Host().CurrentElement(), name);
    return kind == kEverythingChanged;
}

std::optional<NoTarget> Cendra::MissingTarget()
{
    if (!target_.HasConnector())
        return NoTarget{"Select a leaf of the navigation tree", "Select a channel"};
    if (!target_.IsOwn(target_.Product()))
        return NoTarget{"This channel belongs to another product than " + target_.Host().Controller().deviceName(),
                        "Select a channel"};
    return std::nullopt;
}

std::int32_t Cendra::LargeStep(std::int32_t range)
{
    if (range <= kLargestSingleStepRange)
        return 1;
    const StepTier* tier = kStepTiers.begin();
    while (range > tier->upTo)
        ++tier;
    return range / tier->divisor;
}

std::string Cendra::HelpPicture(const std::string&)
{
    return product_ == "Ossary" ? "Ossary_splash.jpg" : "CENDRA_splash.jpg";
}

FlashSteps Cendra::StepsOf(Cendra& product)
{
    return {[](SerialZorbus& link) { return link.ResetCache() && link.Reboot(); },
            [&product](SerialZorbus& link) {
                product.image_.Forget();
                return link.Reboot();
            },
            [&product] { return product.TextsOfFlash(); }};
}

FlashTexts Cendra::TextsOfFlash()
{
    FlashTexts texts;
    texts.savedTitle = product_ + " Save To System";
    texts.saveFailedTitle = texts.restoreFailedTitle = product_ + " Save to System";
    texts.restoredMessage = "Flash settings restored.";
    texts.restoredTitle = product_ + " Restore Settings";
    texts.restoreFailed =
        "Failed to sync to flash.  No response after reboot from " + HexText(target_.Host().Device().ProductID());
    return texts;
}

void Cendra::FileSaved()
{
    if (target_.Host().Services().prompts.Ask("Save settings to hardware (" + target_.EnclosureName() + ")?",
                                              "Save to System"))
        flash_.SyncToFlash_Click();
}

void Cendra::Unload()
{
    SerialWizardProduct::Unload();
    target_.Release();
}

}

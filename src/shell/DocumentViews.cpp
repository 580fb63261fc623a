#include "shell/Document.h"
#include "shell/ProductViews.h"

#include <algorithm>
#include <utility>

namespace tarvex {

bool Document::OpenView(const std::string& product, IWizardView* current)
{
    const std::string view = ViewNameForProduct(product);
    if (view == kAdvancedForm)
        return OpenMainViewBeside(current);
    if (view == kVexlonWizard)
        return OpenVexlonWizard(product);
    return false;
}

void Document::ShowTarget(std::int32_t address, std::int16_t connector)
{
    if (!mainView_)
        return;
    mainView_->SetZorbusID(address);
    mainView_->SetChannelNum(connector);
}

void Document::CloseView(const std::string& product)
{
    if (ViewNameForProduct(product) == kAdvancedForm) {
        mainView_->HideView();
        return;
    }
    IWizardView* wizard = FindWizard(WizardKind::Vexlon);
    if (wizard && wizard->ViewName() != kVexlonWizard)
        wizard->HideView();
}

bool Document::OpenMainViewBeside(IWizardView* current)
{
    if (!current || !IsWizardViewName(current->ViewName()))
        return false;
    mainView_->LockRealTime();
    mainView_->SetAsSecondaryView(true);
    mainView_->DisplayStatusMessage("");
    mainView_->ShowView();
    mainView_->UpdateUI(kEverythingChanged, "");
    mainView_->FocusView();
    return true;
}

bool Document::OpenVexlonWizard(const std::string& product)
{
    IWizardView* wizard = FindWizard(WizardKind::Vexlon);
    if (!wizard)
        return MakeVexlonWizard(product);
    if (currentWizard_ != wizard) {
        UnloadWizard(currentWizard_);
        UnloadWizard(wizard);
        return MakeVexlonWizard("Vexlon");
    }
    wizard->ShowView();
    wizard->FocusView();
    if (device_ && !device_->IsConnected())
        ConnectDevice();
    return true;
}

bool Document::MakeVexlonWizard(const std::string& product)
{
    IWizardView* const previous = currentWizard_;
    IWizardView* wizard = MakeWizard(WizardKind::Vexlon);
    if (!wizard)
        return false;
    currentWizard_ = wizard;
    bool isBound = false;
    const auto giveUp = [&] {
        UnloadWizard(wizard);
        currentWizard_ = previous;
    };
    try {
        isBound = BindVexlonWizard(*wizard, product);
    } catch (...) {
        giveUp();
        throw;
    }
    // A wizard that cannot work must not count as an open one: it would keep the program alive unseen.
    if (!isBound)
        giveUp();
    return isBound;
}

bool Document::BindVexlonWizard(IWizardView& wizard, const std::string& product)
{
    if (!controller().InitDevice(DeviceNameForProduct(product)))
        return false;
    ConnectDevice();
    if (!wizard.Init(*controller_, device_, *this, nullptr))
        return false;
    wizard.SetCurrentProduct(product);
    wizard.ShowView();
    return true;
}

IWizardView* Document::MakeWizard(WizardKind kind)
{
    const auto maker = services_.wizards.find(kind);
    std::unique_ptr<IWizardView> wizard = maker == services_.wizards.end() ? nullptr : maker->second();
    if (!wizard)
        return nullptr;
    return (wizards_[kind] = std::move(wizard)).get();
}

IWizardView* Document::FindWizard(WizardKind kind) const
{
    const auto found = wizards_.find(kind);
    return found == wizards_.end() ? nullptr : found->second.get();
}

void Document::UnloadWizard(const IWizardView* wizard)
{
    const auto found =
        std::find_if(wizards_.begin(), wizards_.end(), [&](const auto& entry) { return entry.second.get() == wizard; });
    if (found == wizards_.end())
        return;
    std::unique_ptr<IWizardView> retired = std::move(found->second);
    wizards_.erase(found);
    if (currentWizard_ == wizard)
        currentWizard_ = nullptr;
    retiredWizards_.push_back(std::move(retired));
    retiredWizards_.back()->Unload();
}

}

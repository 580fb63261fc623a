#include "shell/Document.h"

#include "base/Error.h"
#include "base/Text.h"
#include "comm/Errors.h"
#include "comm/Links.h"
#include "shell/InitFileSearch.h"
#include "shell/ProductViews.h"

#include <exception>
#include <filesystem>
#include <utility>

namespace tarvex {

namespace {

bool LeavesNoDevice(std::string_view link) { return link == "Ethernet" || link == "TCP_IP"; }

std::string WithoutRelativeParts(const std::string& path)
{
    return std::filesystem::path(path).lexically_normal().string();
}

std::string FolderOf(const std::string& path)
{
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

/// Carries on with the end of the document whatever one step of it raises.
template <class Step> void WhateverItRaises(const Step& step) noexcept
{
    try {
        step();
    } catch (...) {
        // The program is ending; there is nobody left to tell.
    }
}

}

Document::Document(DocumentServices services)
    : services_(std::move(services)), copies_(services_.files),
      initFilepath_(FindInitFile(services_.state, services_.files, services_.prompts)),
      initFile_(std::make_shared<TarvexData>(services_.state, services_.files))
{}

Document::~Document()
{
    services_.packetLog.Close();
    copies_.DeleteAll();
    // Windows go before what they look at, and the link is quiet before it goes.
    for (const auto& entry : wizards_)
        WhateverItRaises([&] { entry.second->Unload(); });
    wizards_.clear();
    retiredWizards_.clear();
    WhateverItRaises([&] { ReleaseDevice(); });
    controller_.reset();
}

TarvexController& Document::controller()
{
    if (!controller_)
        RaiseRuntime(kErrInvalidCall, "Document::controller");
    return *controller_;
}

void Document::NotifyCommFailure(const std::string& text)
{
    services_.errorLog.LogError(text, kErrNotConnected, "Document::NotifyCommFailure");
    if (mainView_)
        mainView_->CommFailure(text);
    const WizardStart* start = FindWizardStart(commandLine_.wizardProduct);
    if (IWizardView* wizard = start ? FindWizard(start->kind) : nullptr)
        wizard->CommFailure(text);
}

void Document::UpdateAllViews(const IWizardView* sender, std::int32_t kind, const std::string& name)
{
    if (sender) {
        if (mainView_)
            mainView_->UpdateUI(kind, name);
        return;
    }
    for (const auto& entry : wizards_)
        entry.second->UpdateUI(kind, name);
}

void Document::SelectCommLink(const std::string& name)
{
    const std::string link = IsDemoMode() ? kDemoLink : name;
    if (device_ && device_->DeviceType() == link)
        return;
    const auto maker = services_.links.find(link);
    const bool isKnown = maker != services_.links.end();
    if (!isKnown && !LeavesNoDevice(link))
        return;
    const std::shared_ptr<IDevice> device = isKnown ? maker->second() : nullptr;
    ReleaseDevice();
    device_ = device;
    if (device)
        CommLinkChanged.Raise(device);
}

bool Document::TestForApplicationReservedFilepath(const std::string& path)
{
    const auto isSameFile = [&](const std::string& left, const std::string& right) {
        return services_.files.IsSameFile(left, right);
    };
    const bool isInitFile = EqualsIgnoringCase(WithoutRelativeParts(path), WithoutRelativeParts(initFilepath_)) ||
                            isSameFile(path, initFilepath_) ||
                            (EqualsIgnoringCase(FileNameOf(path), FileNameOf(initFilepath_)) &&
                             isSameFile(FolderOf(path), FolderOf(initFilepath_)));
    return !isInitFile;
}

void Document::ConnectDevice()
{
    if (device_)
        device_->connect(controller().pid(), kVendorId);
}

void Document::ReleaseDevice()
{
    if (!device_)
        return;
    const std::shared_ptr<IDevice> device = device_; // a listener may replace the link meanwhile
    try {
        device->Disconnect();
    } catch (const std::exception&) {
        services_.errorLog.LogCurrentError();
    }
    device_.reset();
}

}

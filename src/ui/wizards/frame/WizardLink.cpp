#include "ui/wizards/frame/WizardLink.h"

#include "base/Error.h"
#include "comm/DemoDevice.h"
#include "comm/Errors.h"
#include "model/RegisterObject.h"
#include "shell/Document.h"
#include "ui/wizards/frame/HelpTips.h"
#include "ui/wizards/frame/WizardElements.h"

namespace tarvex {

namespace {

constexpr std::int32_t kHelpContents = 0; ///< no topic of its own: the contents page

}

WizardLink::WizardLink(IWizardFrameView& view, IWizardProduct& product, const WizardDescription& description,
                       const WizardServices& services, std::function<void()> recovered)
    : view_(view), product_(product), description_(description), services_(services), recovered_(std::move(recovered))
{}

IDevice& WizardLink::Device() const
{
    if (!document_ || !document_->device())
        Raise(kErrNotConnected, "Wizard::Device", "There is no communication link");
    return *document_->device();
}

WizardLink::Answer WizardLink::AskBoard(std::string& error)
{
    const auto busy = services_.beginBusy();
    const auto kept = document_->device(); // stays while it is at work
    try {
        IConfigController& controller = document_->controller();
        std::int32_t baseAddress = 0;
        std::int32_t address = 0;
        if (controller.GetI2CRegisterCount() > 0) {
            const auto first = controller.GetI2CRegister(0);
            baseAddress = first->BaseAddress();
            address = first->Address();
        }
        return kept && kept->VerifyCommunications(baseAddress, address) ? Answer::Yes : Answer::No;
    } catch (const Error& raised) {
        services_.errorLog.LogCurrentError();
        error = raised.Description();
        return Answer::Error;
    }
}

bool WizardLink::Check(Telling telling)
{
    std::string error;
    const Answer answer = AskBoard(error);
    if (answer == Answer::Yes) {
        ShowStanding();
        return true;
    }
    const bool tells = !failed_ || telling == Telling::Always;
    EnterFailureState();
    if (tells && answer == Answer::Error)
        services_.prompts.Tell("Unexpected error: " + error);
    else if (tells)
        TellNoAnswer();
    return false;
}

bool WizardLink::Connect()
{
    const auto busy = services_.beginBusy();
    const auto kept = document_->device();
    try {
        IConfigController& controller = document_->controller();
        return kept && (kept->IsConnected() || kept->connect(controller.pid(), controller.vid()) == 1);
    } catch (const Error&) {
        services_.errorLog.LogCurrentError();
        return false;
    }
}

bool WizardLink::EnsureLink()
{
    if (!document_)
        return false;
    const auto device = document_->device();
    if (!failed_ && device && device->IsConnected())
        return true;
    Connect();
    if (Check(Telling::NewFailure))
        return true;
    view_.ShowMessage("Communication failure");
    EnterFailureState();
    return false;
}

bool WizardLink::StillAnswers()
{
    std::string error;
    const auto device = document_->device();
    if (device && device->IsConnected() && !IsKnownGone(*device) && AskBoard(error) == Answer::Yes)
        return true;
    try {
        if (device)
            device->Disconnect();
    } catch (const Error&) {
        services_.errorLog.LogCurrentError();
    }
    return false;
}

void WizardLink::ShowStanding()
{
    const std::string type = Device().DeviceType();
    const auto picture = [this](const char* name) { return FindPicture(services_.files, services_.state, name); };
    if (type == description_.realLink)
        view_.ShowConnection(picture("connected_on_grey.jpg"), "Connected");
    else if (type == kDemoDeviceType)
        view_.ShowConnection(picture("demo_on_grey.jpg"), kDemoDeviceType);
    EnableMenus(true);
    if (failed_) {
        failed_ = false;
        recovered_();
    }
}

void WizardLink::TellNoAnswer()
{
    MessageBoxRequest box{"Unable to establish communication with " + TargetName(), "Communication Failure"};
    box.helpTopic = kHelpContents;
    services_.prompts.ShowMessage(box);
}

void WizardLink::EnterFailureState()
{
    failed_ = true;
    product_.Image().Forget();
    view_.ShowValueText("Communication Failure", TextTone::Alert);
    view_.ShowMessage("Communication to device lost");
    view_.ShowConnection(FindPicture(services_.files, services_.state, "brokenlink_on_grey.jpg"), "No connection");
    const HelpTip tip = FindHelpTip(services_.files, services_.state, description_.failureHelpTip);
    if (tip.richText.empty())
        view_.ShowHelpTipText(tip.text);
    else
        view_.ShowHelpTip(tip.richText);
    EnableMenus(false);
}

void WizardLink::EnableMenus(bool enabled)
{
    for (const std::string& name : description_.offOnFailure)
        view_.BlockEntry(name, !enabled);
    product_.MenusEnabled(enabled);
}

std::string WizardLink::TargetName() const
{
    const std::string name = product_.TargetName();
    return name.empty() ? document_->controller().deviceName() : name;
}

}

#include "base/Error.h"
#include "base/Restored.h"
#include "config/MinInitVersion.h"
#include "config/PendingEdits.h"
#include "model/RegisterObject.h"
#include "shell/Document.h"
#include "ui/advanced/BoardActions.h"

namespace tarvex {

namespace {

constexpr const char* kNoAddressHint = "\n\nEnter the address of the enclosure beside ZorbusID, or choose SerialZorbus "
                                       "in the Communication menu to search "
                                       "the network for it.";

/// Takes "Real Time Update" away while values of the board are put into the grid.
class RealTimeOff {
public:
    explicit RealTimeOff(IRegisterView& view) : view_(view), before_(view.RealTime()) { view_.RealTime(false); }
    ~RealTimeOff() { view_.RealTime(before_); }
    RealTimeOff(const RealTimeOff&) = delete;
    RealTimeOff& operator=(const RealTimeOff&) = delete;

private:
    IRegisterView& view_;
    bool before_;
};

}

void BoardActions::ReadConfiguration()
{
    const UserAction action(*this);
    if (!Aim())
        return;
    if (link_.Device() && !link_.IsDemo() && !link_.Connect())
        Connecting();
    else
        ReadIfLinkAnswers();
}

void BoardActions::ReadIfLinkAnswers()
{
    if (!Aim())
        return;
    if (link_.Verify())
        ReadAll();
    else
        TellNoAnswer();
}

void BoardActions::TellNoAnswer()
{
    Tell("Unable to connect or verify communications to device " + controller_.deviceName() + " on " +
         link_.DeviceType() + link_.WhyRefused() + (link_.IsSerial() && controller_.pid() == 0 ? kNoAddressHint : ""));
}

void BoardActions::Connecting()
{
    readWanted_ = false; // the read that follows a connection is made here
    if (!MayDropEdits())
        return;
    const std::string name = Browse();
    if (name.empty()) {
        TellNoAnswer();
        return;
    }
    if (!services_.prompts.Ask("Connect now to device " + name))
        return;
    const bool connected = ConnectTo(name);
    readWanted_ = false;
    if (!connected) {
        Tell("Unable to connect to " + name + link_.WhyRefused());
        return;
    }
    services_.state.g_minInitVersion = MinInitVersionForProduct(controller_.deviceName());
    view_.ShowRules(RulesForProduct(controller_.deviceName()));
    view_.EnableTransfers(true);
    if (!Aim())
        return;
    ReadAll();
    services_.statusLine.DisplayStatusMessage("Connected to " + name);
}

TransferResult BoardActions::Run(const Registers& registers, Direction direction)
{
    const auto busy = services_.beginBusy();
    const auto device = document_.device(); // stays while its transfers run
    RegisterTransfer transfer(*device, link_.Counts(), services_.errorLog);
    if (link_.IsSerial())
        transfer.AddressWith([this, product = controller_.deviceName()](const RegisterObject& object) {
            return target_.AspiOf(object, product);
        });
    transfer.ShowOn(registers.size() > 1 ? &services_.progress : nullptr, services_.statusLine, services_.wait);
    return (transfer.*direction)(registers);
}

void BoardActions::ReadAll()
{
    controller_.SetProgressBar(&services_.progress);
    TransferResult result;
    {
        const RealTimeOff realTimeOff(view_);
        const Restored<bool> notReady(ready_, false);
        result = Run(AllRegisters(controller_), &RegisterTransfer::Read);
        ShowValues();
    }
    ready_ = true;
    lastReadIncomplete_ = !result.Complete();
    document_.UpdateAllViews(nullptr, kEverythingChanged, "");
    Report("read", result);
}

void BoardActions::LoadConfiguration()
{
    const UserAction action(*this);
    if (!Aim())
        return;
    if (!link_.Connect()) {
        Tell("Failed to connect to " + controller_.deviceName() + link_.WhyRefused());
        return;
    }
    auto registers = ChangedRegisters(controller_);
    if (registers.empty() && secondaryView_)
        document_.UpdateAllViews(nullptr, kEverythingChanged, ""); // the wizard reads what it does not know any more
    if (registers.empty() && lastReadIncomplete_) {
        services_.statusLine.DisplayStatusMessage("Not every register could be read. Read the configuration again.");
        return;
    }
    if (registers.empty()) {
        if (!services_.prompts.Ask(
                "No register data to write, application is in sync with device.  Resend all anyway?"))
            return;
        registers = AllRegisters(controller_);
    }
    Write(registers);
}

void BoardActions::Write(const Registers& registers)
{
    const TransferResult result = Run(registers, &RegisterTransfer::Write);
    view_.ShowMarks();
    document_.UpdateAllViews(nullptr, kEverythingChanged, "");
    Report("written", result);
}

void BoardActions::ReadSingleRegister(const std::string& name)
{
    const UserAction action(*this);
    const auto object = controller_.GetI2CRegisterByName(name);
    if (!Aim())
        return;
    if (!link_.Verify()) {
        TellNoAnswer();
        return;
    }
    TransferResult result;
    {
        const PendingEdits others(controller_, object.get()); // of registers that are read after this one
        result = Run({object}, &RegisterTransfer::Read);
    }
    ShowValues(); // the registers that depend on it were read, too
    document_.UpdateAllViews(nullptr, kRegisterChanged, name);
    Report("read", result);
}

void BoardActions::EditRegister(const std::string& name, std::int32_t value)
{
    if (showing_)
        return;
    const UserAction action(*this);
    const auto object = controller_.GetI2CRegisterByName(name);
    const std::int32_t old = object->value();
    try {
        object->value(value);
    } catch (const Error&) {
        services_.errorLog.LogCurrentError();
        ShowRegister(name); // which has kept its old value
        return;
    }
    const bool changed = value != old;
    modified_ = modified_ || changed;
    if (ready_ && view_.RealTime() && (changed || !secondaryView_))
        WriteOne(object);
    view_.ShowMarks();
}

void BoardActions::WriteOne(const std::shared_ptr<RegisterObject>& object)
{
    TransferResult result;
    result.failed = 1;
    // To an enclosure that is not the one in the address box, nothing may be written.
    if (document_.device() && Aim() && (!link_.IsSerial() || link_.Connect()))
        result = Run({object}, &RegisterTransfer::Write);
    if (result.Complete()) {
        // Only then: a wizard that reads the register again would lose the edit and its mark.
        document_.UpdateAllViews(nullptr, kRegisterChanged, object->Name());
        services_.statusLine.DisplayStatusMessage(object->Name() + " written.");
    } else {
        services_.statusLine.DisplayStatusMessage("Failed to write " + object->Name() +
                                                  ". It stays marked for Load Configuration.");
    }
    if (!result.error.empty())
        Tell(result.error);
}

void BoardActions::RealTimeTicked()
{
    if (!view_.RealTime())
        return;
    const UserAction action(*this);
    const bool answers = Aim() && link_.Verify();
    if (!answers)
        view_.RealTime(false);
    services_.statusLine.DisplayStatusMessage(answers ? "The board answers: each change is written at once."
                                                      : "The board does not answer: Real Time Update stays off.");
}

void BoardActions::Report(const char* verb, const TransferResult& result)
{
    std::string text = std::to_string(result.done) + (result.done == 1 ? " register " : " registers ") + verb + ", " +
                       (result.failed == 0 ? "none" : std::to_string(result.failed)) + " failed.";
    if (result.stopped)
        text += " Stopped after too many failures.";
    if (result.stuck)
        text += " Stopped: the board takes nothing. Switch it off and on, or plug it in again.";
    if (result.cancelled)
        text += " Cancelled with Escape.";
    services_.statusLine.DisplayStatusMessage(text);
    if (!result.error.empty())
        Tell(result.error);
}

}

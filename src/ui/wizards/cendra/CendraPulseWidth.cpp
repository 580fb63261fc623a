#include "ui/wizards/cendra/CendraPulseWidth.h"

#include "model/RegisterObject.h"
#include "shell/IMainView.h"
#include "ui/wizards/cendra/CendraTarget.h"
#include "ui/wizards/frame/RegisterWrite.h"

namespace tarvex {

namespace {

constexpr const char* kSource = "Cendra_Wizard::SyncPulseWidth";
constexpr const char* kElement = "Horizontal Pulse Width";
constexpr const char* kRegister = "HS_Out_Width";

}

void CendraPulseWidth::Move(Step step)
{
    IWizardHost& host = target_.Host();
    const std::string element = kElement;
    if (host.CurrentElement() != element || !host.IsCurrentSelected()) {
        host.Services().prompts.Tell((step == Step::Up ? "Increasing the " : "Decreasing the ") + element +
                                     " is only available when the " + element +
                                     " is the selected configuration element");
        return;
    }
    const auto pulse = host.Controller().GetI2CRegisterByName(kRegister);
    std::int32_t current = 0;
    const auto read = [&] { current = pulse->ReadValue(host.Device(), target_.Aspi(*pulse)); };
    if (!host.Read(kSource, kRegister, read))
        return;
    const auto width = NextPulseWidth(current, pulse->MaxValue(), step);
    if (!width) {
        host.Say(element + (step == Step::Up ? " is already at its maximum" : " is already at its minimum"));
        return;
    }
    const auto write = [&] { WriteRegister(host, *pulse, *width, target_.Aspi(*pulse)); };
    if (!host.Write(kSource, kRegister, write))
        return;
    host.TellOtherViews(kRegisterChanged, kRegister);
    host.SelectAgain(); // the bar shows this register, too
}

}

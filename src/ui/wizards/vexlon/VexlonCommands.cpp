#include "ui/wizards/vexlon/VexlonCommands.h"

#include "model/RegisterObject.h"
#include "shell/IMainView.h"

namespace tarvex {

namespace {

constexpr const char* kModeRegister = "CTL_1_MODE";
constexpr std::int32_t kReSyncBit = 0x40;
constexpr const char* kPulseRegister = "Hsync output pulsewidth";
constexpr std::int32_t kWidestPulse = 255;
constexpr const char* kDividerRegister = "PLL Div MSB";

}

void VexlonCommands::ReSync()
{
    constexpr const char* kSource = "Vexlon_Wizard::ReSync";
    const auto held = board_.ReadNow(kSource, kModeRegister);
    if (!held)
        return;
    const bool isLeftOver = cutShort_ && *held == (*cutShort_ | kReSyncBit); // and not a part of the mode
    const std::int32_t mode = isLeftOver ? *cutShort_ : *held;
    const auto pulse = [&] {
        board_.Write(kModeRegister, mode | kReSyncBit);
        board_.Write(kModeRegister, mode);
    };
    cutShort_ = mode;
    if (board_.Host().Write(kSource, kModeRegister, pulse))
        cutShort_.reset();
}

void VexlonCommands::StepPulseWidth(Step step)
{
    IWizardHost& host = board_.Host();
    if (host.CurrentElement() != "Horizontal Position" || !host.IsCurrentSelected()) {
        host.Services().prompts.Tell(
            std::string(step == Step::Up ? "Increasing" : "Decreasing") +
            " the HSync pulse width is only available when the Horizontal Position is the selected configuration "
            "element");
        return;
    }
    constexpr const char* kSource = "Vexlon_Wizard::StepPulseWidth";
    const auto width = board_.ReadNow(kSource, kPulseRegister);
    if (!width)
        return;
    if (const auto next = NextPulseWidth(*width, kWidestPulse, step))
        WriteAndTell(kSource, kPulseRegister, *next);
    else
        host.Say(std::string("Horizontal Pulse Width is already at its ") + (step == Step::Up ? "maximum" : "minimum"));
}

void VexlonCommands::ShiftFineTune(Step step)
{
    IWizardHost& host = board_.Host();
    const bool up = step == Step::Up;
    if (host.CurrentElement() != "Fine Tune") {
        host.Services().prompts.Tell(
            std::string(up ? "Increment" : "Decrement") +
            " Fine Tune option only works when the Fine Tune configuration element is selected");
        return;
    }
    constexpr const char* kSource = "Vexlon_Wizard::ShiftFineTune";
    const auto before = board_.ReadNow(kSource, kDividerRegister);
    if (!before)
        return;
    const RegisterObject& divider = board_.Register(kDividerRegister);
    const std::int32_t end = up ? divider.MaxValue() : divider.MinValue();
    if (*before == end)
        host.Services().prompts.Tell(std::string("Fine Tune MSB Register cannot be ") +
                                     (up ? "incremented above " : "decremented below ") + std::to_string(end));
    else if (WriteAndTell(kSource, kDividerRegister, *before + (up ? 1 : -1)))
        host.View().MoveBar(up ? host.View().Bar().minimum : host.View().Bar().maximum);
}

bool VexlonCommands::WriteAndTell(const char* source, const char* name, std::int32_t value)
{
    if (!board_.Host().Write(source, name, [&] { board_.Write(name, value); }))
        return false;
    board_.Host().TellOtherViews(kRegisterChanged, name);
    return true;
}

}

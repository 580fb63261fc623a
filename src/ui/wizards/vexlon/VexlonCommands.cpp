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
    const std::int32_t mode = board_.Value(kModeRegister);
    const auto pulse = [&] {
        board_.Write(kModeRegister, mode | kReSyncBit);
        board_.Write(kModeRegister, mode);
    };
    try {
        board_.Host().Write("Vexlon_Wizard::ReSync", kModeRegister, pulse);
    } catch (...) {
        board_.Register(kModeRegister).value(mode); // the next pulse must not take the bit for a part of the mode
        throw;
    }
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
    if (const auto next = NextPulseWidth(board_.Value(kPulseRegister), kWidestPulse, step))
        WriteAndTell("Vexlon_Wizard::StepPulseWidth", kPulseRegister, *next);
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
    const RegisterObject& divider = board_.Register(kDividerRegister);
    const std::int32_t end = up ? divider.MaxValue() : divider.MinValue();
    if (divider.value() == end)
        host.Services().prompts.Tell(std::string("Fine Tune MSB Register cannot be ") +
                                     (up ? "incremented above " : "decremented below ") + std::to_string(end));
    else if (WriteAndTell("Vexlon_Wizard::ShiftFineTune", kDividerRegister, divider.value() + (up ? 1 : -1)))
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

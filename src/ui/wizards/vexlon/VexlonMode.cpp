#include "ui/wizards/vexlon/VexlonMode.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "shell/IMainView.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr const char* kPll = "VCO/CPMP";
constexpr std::int32_t kPllBits = 0xF8; ///< the other ones are not ours
constexpr const char* kResolutionPanel = "Resolution";
constexpr const char* kRefreshPanel = "Refresh";
constexpr std::int16_t kWidthLimit = 1601;
constexpr std::int16_t kHeightLimit = 1201;
constexpr std::int16_t kDefaultRefresh = 60;
constexpr std::array<const char*, 4> kResolutionRegisters{"DE_CNT MSB", "DE_CNT LSB", "DE_LIN MSB", "DE_LIN LSB"};

template <class Items>
void CheckItem(IWizardFrameView& view, const char* array, const Items& items, const std::string& text)
{
    for (std::size_t i = 0; i < items.size(); ++i)
        view.CheckEntry(array + std::string("_") + std::to_string(i), items[i] == text);
}

}

bool VexlonMode::SetResolution(Resolution wanted)
{
    const std::int16_t refresh = changes_.refresh; // a lost link makes it unknown on the way
    if (refresh != kUnknownRefresh && !PllByteOrSayWhy(wanted, refresh))
        return false;
    if (!WriteResolution(wanted))
        return false;
    changes_.previousResolution = resolution_;
    resolution_ = wanted;
    ShowResolution();
    board_.Host().SelectAgain(); // width, height and fine tune are elements, too; it takes the undo, so not later
    board_.Host().OfferUndo(kUndoResolution);
    if (refresh != kUnknownRefresh)
        ProgramPll(refresh);
    else if (board_.Host().Services().prompts.Ask("Use a default refresh rate of 60Hz?"))
        ProgramPll(kDefaultRefresh);
    return true;
}

bool VexlonMode::WriteResolution(Resolution wanted)
{
    constexpr const char* kSource = "Vexlon_Wizard::SetResolution";
    const ResolutionPlan plan = PlanResolution(wanted);
    if (plan.writes.empty())
        return false;
    const auto read = [&] { // what undo brings back
        for (const char* each : kResolutionRegisters)
            board_.Read(each);
        ReadBackResolution();
    };
    const auto writes = [&] { board_.Write(plan.writes); };
    return board_.Host().Read(kSource, "Resolution", read) && board_.Host().Write(kSource, "Resolution", writes) &&
           plan.complete;
}

void VexlonMode::ProgramPll(std::int16_t refresh)
{
    const auto byte = PllByteOrSayWhy(resolution_, refresh);
    if (!byte || !WritePll("Vexlon_Wizard::SetResolution", *byte))
        return;
    changes_.refresh = refresh;
    ShowRefresh();
    board_.Host().TellOtherViews(kEverythingChanged, "");
}

void VexlonMode::ChooseRefresh(const std::string& text)
{
    constexpr const char* kSource = "Vexlon_Wizard::SetRefresh";
    const std::int16_t refresh = ToInt16(ParseDecimal(text, kSource), kSource);
    if (!IsInRange())
        return;
    const auto byte = PllByteOrSayWhy(resolution_, refresh);
    if (!byte)
        return;
    const auto before = board_.ReadNow(kSource, kPll);
    if (!before || !WritePll(kSource, *byte))
        return;
    changes_.previousPll = before;
    changes_.refresh = refresh;
    ShowRefresh();
    board_.Host().OfferUndo(kUndoRefresh);
    board_.Host().TellOtherViews(kEverythingChanged, "");
}

bool VexlonMode::IsInRange()
{
    if (resolution_.width >= kWidthLimit)
        board_.Host().Say("Width of " + std::to_string(resolution_.width) + " is out of range.");
    else if (resolution_.height >= kHeightLimit)
        board_.Host().Say("Height of " + std::to_string(resolution_.height) + " is out of range.");
    else
        return true;
    return false;
}

bool VexlonMode::WritePll(const char* source, std::int32_t value)
{
    return board_.Host().Write(source, kPll, [&] { board_.Write(kPll, value); });
}

std::optional<std::uint8_t> VexlonMode::PllByteOrSayWhy(Resolution resolution, std::int16_t refresh)
{
    try {
        return VcoChargePumpByte(resolution, refresh);
    } catch (const Error&) {
        board_.Host().Services().errorLog.LogCurrentError();
        board_.Host().Say("The PLL has no setting for " + ResolutionText(resolution) + " at " +
                          std::to_string(refresh) + "Hz.");
        return std::nullopt;
    }
}

void VexlonMode::Undo(std::int32_t code)
{
    if (!board_.Host().EnsureLink()) // before that it is not known whether the board has kept its mode
        return;
    if (code == kUndoResolution)
        UndoResolution();
    else if (code == kUndoRefresh)
        UndoRefresh();
}

void VexlonMode::ForgetChanges()
{
    changes_ = {};
    ShowRefresh();
}

void VexlonMode::BoardWasRead(const std::vector<std::string>& failed)
{
    const Resolution before = resolution_;
    ReadBackResolution();
    if (resolution_ != before || !HasKeptMode(failed))
        ForgetChanges();
}

bool VexlonMode::HasKeptMode(const std::vector<std::string>& failed) const
{
    const auto isOfMode = [](const std::string& name) { return name == kPll || IsPartOfResolution(name); };
    if (std::any_of(failed.begin(), failed.end(), isOfMode))
        return false;
    if (changes_.refresh == kUnknownRefresh)
        return true;
    try {
        const std::int32_t set = VcoChargePumpByte(resolution_, changes_.refresh);
        return (board_.Value(kPll) & kPllBits) == (set & kPllBits);
    } catch (const Error&) { // no mode that could have been set here
        return false;
    }
}

void VexlonMode::UndoResolution()
{
    if (changes_.previousResolution == kNoResolution) {
        board_.Host().Say("No resolution to undo.");
        return;
    }
    if (!SetResolution(changes_.previousResolution))
        return;
    changes_.previousResolution = kNoResolution;
    board_.Host().Say("Undoing resolution.");
}

void VexlonMode::UndoRefresh()
{
    if (!changes_.previousPll) {
        board_.Host().Say("No refresh to undo.");
        return;
    }
    if (!WritePll("Vexlon_Wizard::UndoRefresh", *changes_.previousPll))
        return;
    changes_.previousPll.reset();
    changes_.refresh = kUnknownRefresh;
    ShowRefresh();
    board_.Host().Say("Undoing refresh.");
    board_.Host().TellOtherViews(kEverythingChanged, "");
}

bool VexlonMode::IsPartOfResolution(const std::string& registerName)
{
    return std::find(kResolutionRegisters.begin(), kResolutionRegisters.end(), registerName) !=
           kResolutionRegisters.end();
}

void VexlonMode::ReadBackResolution()
{
    const auto pair = [this](std::size_t upper) {
        const std::int32_t value =
            board_.Value(kResolutionRegisters[upper]) * 256 + board_.Value(kResolutionRegisters[upper + 1]);
        return ToInt16(value, "Vexlon_Wizard::ReadBackResolution");
    };
    try {
        resolution_ = {pair(0), pair(2)};
    } catch (const Error&) { // a board with nonsense in it, or without these registers, can still be adjusted
        board_.Host().Services().errorLog.LogCurrentError();
        resolution_ = kNoResolution;
    }
    ShowResolution();
}

void VexlonMode::ShowResolution()
{
    const std::string text = ResolutionText(resolution_);
    board_.Host().View().ShowPanel(kResolutionPanel, text);
    CheckItem(board_.Host().View(), "Resolution0", kResolutionItems, text);
}

void VexlonMode::ShowRefresh()
{
    const std::string text = std::to_string(changes_.refresh);
    board_.Host().View().ShowPanel(kRefreshPanel, changes_.refresh == kUnknownRefresh ? " " : text + "Hz");
    CheckItem(board_.Host().View(), "Refresh0", kRefreshItems, text);
}

}

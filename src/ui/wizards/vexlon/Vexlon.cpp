#include "ui/wizards/vexlon/Vexlon.h"

#include "comm/Links.h"
#include "shell/IMainView.h"
#include "ui/wizards/frame/BoardLoading.h"
#include "ui/wizards/vexlon/VexlonElements.h"

#include <utility>

namespace tarvex {

namespace {

MenuEntry Entry(const char* name, const char* caption, std::function<void()> chosen)
{
    return {name, caption, std::move(chosen)};
}

MenuEntry Menu(const char* name, const char* caption, std::vector<MenuEntry> entries)
{
    MenuEntry menu{name, caption};
    menu.entries = std::move(entries);
    return menu;
}

template <class Items, class Chosen>
std::vector<MenuEntry> CheckableEntries(const std::string& array, const Items& items, const Chosen& chosen)
{
    std::vector<MenuEntry> entries;
    entries.reserve(items.size());
    for (const char* item : items)
        entries.push_back({array + "_" + std::to_string(entries.size()), item, [=] { chosen(item); }, true});
    return entries;
}

}

WizardDescription Vexlon::Describe()
{
    WizardDescription description;
    description.windowName = "Vexlon_Wizard";
    description.viewName = "Vexlon Wizard";
    description.designCaption = "Vexlon - Display Adjustments";
    description.realLink = kHidDeviceType;
    description.panels = {"Resolution", "Refresh"};
    description.elements = BuiltInVexlonElements();
    description.options = {
        ResolutionMenu(), RefreshMenu(), Entry("ReSync", "ReSync Monitor", OnBoard([this] { commands_.ReSync(); })),
        Menu("PulseWidth", "Horizontal Pulse Width",
             {Entry("IncreaseHSyncPulseWidth", "Increase", OnBoard([this] { commands_.StepPulseWidth(Step::Up); })),
              Entry("DecreaseHSyncPulseWidth", "Decrease", OnBoard([this] { commands_.StepPulseWidth(Step::Down); }))}),
        Menu("FineTuneScale", "Fine Tune Shift",
             {Entry("PLL_MSBIncrement", "Increment", OnBoard([this] { commands_.ShiftFineTune(Step::Up); })),
              Entry("PLL_MSBDecrement", "Decrement", OnBoard([this] { commands_.ShiftFineTune(Step::Down); }))})};
    return description;
}

std::function<void()> Vexlon::OnBoard(std::function<void()> command)
{
    return [this, command = std::move(command)] {
        if (board_.Host().EnsureLink())
            command();
    };
}

MenuEntry Vexlon::ResolutionMenu()
{
    const auto choose = [this](const char* item) { OnBoard([=, this] { mode_.ChooseResolution(item); })(); };
    return Menu("Resolution", "Set Resolution", CheckableEntries("Resolution0", kResolutionItems, choose));
}

MenuEntry Vexlon::RefreshMenu()
{
    const auto choose = [this](const char* item) { OnBoard([=, this] { mode_.ChooseRefresh(item); })(); };
    return Menu("Refresh", "Set Refresh", CheckableEntries("Refresh0", kRefreshItems, choose));
}

bool Vexlon::UpdateUI(std::int32_t kind, const std::string& name)
{
    if (kind == kRegisterChanged && VexlonMode::IsPartOfResolution(name))
        mode_.ReadBackResolution();
    return true;
}

std::optional<NoTarget> Vexlon::MissingTarget()
{
    if (!target_.NeedsChannel())
        return std::nullopt;
    return NoTarget{"Please select a Leaf node in the tree.", ""};
}

bool Vexlon::WriteElement(const std::string& element, std::int32_t value)
{
    return values_.Write(element, value, target_.Name());
}

std::string Vexlon::HelpPicture(const std::string& element)
{
    return HelpPictureOf(element, board_.Host().Controller().deviceName());
}

bool Vexlon::OpenFile(const std::string& path) { return BoardLoading(board_.Host(), "Vexlon", kNoAspi).Load(path); }

}

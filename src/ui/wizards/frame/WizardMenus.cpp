#include "ui/wizards/frame/WizardMenus.h"

#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QMenu>

namespace tarvex {

namespace {

// Why an entry is off; either is enough.
constexpr const char* kSwitchedOff = "switchedOff";
constexpr const char* kBlocked = "blocked";

void SetOff(QAction& entry, const char* reason, bool off)
{
    entry.setProperty(reason, off);
    const bool on = !entry.property(kSwitchedOff).toBool() && !entry.property(kBlocked).toBool();
    if (auto* menu = entry.menu()) // its entry alone would come back with the bar, after work has run
        menu->setEnabled(on);
    else
        entry.setEnabled(on);
}

}

WizardMenus::WizardMenus(QMenuBar& bar, BusyState& busy, const WizardDescription& description,
                         WizardMenuHandlers handlers)
    : bar_(bar), busy_(busy), handlers_(std::move(handlers))
{
    const CommonCaptions& captions = description.captions;
    QMenu& file = AddMenu("File", "&File");
    AddEntry(file, {"Open", "&Open", handlers_.open}, QKeySequence::Open);
    AddEntry(file, {"Save", captions.save, handlers_.save}, QKeySequence::Save);
    AddEntry(file, {"SaveAs", captions.saveAs, handlers_.saveAs}, QKeySequence("Ctrl+Shift+S"));
    file.addSeparator();
    AddEntry(file, {"Quit", "&Quit", handlers_.quit}, QKeySequence("Ctrl+Q"));
    AddEntry(AddMenu("Edit", captions.edit), {"Undo", captions.undo, handlers_.undo}, QKeySequence::Undo);
    AddProductEntries(AddMenu("Options", captions.options), description.options);
    AddEntry(AddMenu("View", "&View"), {"AdvancedView", "&Advanced", handlers_.advancedView});
    QMenu& help = AddMenu("Help", "&Help");
    AddEntry(help, {"HelpContents", "&Contents", handlers_.helpContents}, QKeySequence::HelpContents);
    AddEntry(help, {"HotKeys", "Hot &Keys", handlers_.hotKeys});
    AddEntry(help, {"Version", "&Version Info", handlers_.version});
    busyChanged_ = busy_.Changed.Subscribe([this](bool isBusy) { bar_.setEnabled(!isBusy); });
}

QMenu& WizardMenus::AddMenu(const char* name, const std::string& caption)
{
    QMenu* menu = bar_.addMenu(ToQt(caption));
    menu->setObjectName(name);
    return *menu;
}

QAction& WizardMenus::AddEntry(QMenu& menu, const MenuEntry& entry, const QKeySequence& keys)
{
    QAction* action = menu.addAction(ToQt(entry.caption));
    action->setObjectName(ToQt(entry.name));
    action->setShortcut(keys);
    action->setCheckable(entry.checkable);
    SetOff(*action, kSwitchedOff, !entry.enabled);
    QObject::connect(action, &QAction::triggered, this,
                     [this, action, chosen = entry.chosen] { Guarded([&] { Choose(*action, chosen); }); });
    return *action;
}

void WizardMenus::AddProductEntries(QMenu& menu, const std::vector<MenuEntry>& entries)
{
    for (const MenuEntry& each : entries) {
        if (each.entries.empty()) {
            MenuEntry entry = each;
            entry.chosen = [this, chosen = each.chosen] { handlers_.product(chosen); };
            AddEntry(menu, entry);
            continue;
        }
        QMenu* submenu = menu.addMenu(ToQt(each.caption));
        submenu->setObjectName(ToQt(each.name));
        SetOff(*submenu->menuAction(), kSwitchedOff, !each.enabled);
        AddProductEntries(*submenu, each.entries);
    }
}

void WizardMenus::Choose(QAction& entry, const std::function<void()>& chosen)
{
    if (entry.isCheckable())
        entry.setChecked(!entry.isChecked()); // the mark follows what really happens
    if (chosen && !busy_.IsBusy() && IsReachable(entry))
        chosen();
}

bool WizardMenus::IsReachable(const QAction& entry) const
{
    for (const auto* menu = qobject_cast<QMenu*>(entry.parent()); menu != nullptr;
         menu = qobject_cast<QMenu*>(menu->parentWidget()))
        if (!menu->menuAction()->isEnabled())
            return false;
    return true;
}

QAction* WizardMenus::Find(const std::string& name) const
{
    if (const auto* menu = bar_.findChild<QMenu*>(ToQt(name)))
        return menu->menuAction();
    return bar_.findChild<QAction*>(ToQt(name));
}

void WizardMenus::Set(const std::string& name, const char* reason, bool off)
{
    if (QAction* entry = Find(name))
        SetOff(*entry, reason, off);
}

void WizardMenus::Enable(const std::string& name, bool enabled) { Set(name, kSwitchedOff, !enabled); }

void WizardMenus::Block(const std::string& name, bool blocked) { Set(name, kBlocked, blocked); }

void WizardMenus::Check(const std::string& name, bool checked)
{
    if (QAction* entry = Find(name))
        entry->setChecked(checked);
}

bool WizardMenus::IsChecked(const std::string& name) const
{
    const QAction* entry = Find(name);
    return entry != nullptr && entry->isChecked();
}

void WizardMenus::Caption(const std::string& name, const std::string& caption)
{
    if (QAction* entry = Find(name))
        entry->setText(ToQt(caption));
}

std::string WizardMenus::Caption(const std::string& name) const
{
    const QAction* entry = Find(name);
    return entry != nullptr ? FromQt(entry->text()) : std::string();
}

}

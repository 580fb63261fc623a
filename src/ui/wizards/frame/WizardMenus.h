#pragma once

#include "ui/common/BusyState.h"
#include "ui/wizards/frame/WizardDescription.h"

#include <QMenuBar>

#include <functional>
#include <string>
#include <vector>

namespace tarvex {

/// What the common entries of a wizard's menus do.
struct WizardMenuHandlers {
    std::function<void()> open, save, saveAs, quit, undo, advancedView, helpContents, hotKeys, version;
    /// Carries out an entry of the product.
    std::function<void(const std::function<void()>&)> product;
};

/// A wizard's menus, made of the common entries and those that the product describes. Entries and menus are found by
/// object name. Nothing is carried out while work runs, or in a menu that is off.
class WizardMenus : public QObject {
public:
    WizardMenus(QMenuBar& bar, BusyState& busy, const WizardDescription& description, WizardMenuHandlers handlers);

    void Enable(const std::string& name, bool enabled);
    /// Keeps an entry off, whatever Enable says or has said.
    void Block(const std::string& name, bool blocked);
    void Check(const std::string& name, bool checked);
    bool IsChecked(const std::string& name) const;
    void Caption(const std::string& name, const std::string& caption);
    std::string Caption(const std::string& name) const;

private:
    QMenu& AddMenu(const char* name, const std::string& caption);
    QAction& AddEntry(QMenu& menu, const MenuEntry& entry, const QKeySequence& keys = {});
    void AddProductEntries(QMenu& menu, const std::vector<MenuEntry>& entries);
    void Choose(QAction& entry, const std::function<void()>& chosen);
    void Set(const std::string& name, const char* reason, bool off);
    bool IsReachable(const QAction& entry) const;
    /// The entry, or a menu's own action; none for an unknown name.
    QAction* Find(const std::string& name) const;

    QMenuBar& bar_;
    BusyState& busy_;
    WizardMenuHandlers handlers_;
    Subscription busyChanged_;
};

}

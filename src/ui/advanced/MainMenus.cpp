#include "ui/advanced/MainMenus.h"

#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QMenu>

namespace tarvex {

namespace {

void RemoveEntry(QMenu& menu, QAction& entry)
{
    menu.removeAction(&entry);
    entry.setObjectName({});
    entry.deleteLater(); // the one that was chosen may be at work
}

}

MainMenus::MainMenus(QMenuBar& bar, BusyState& busy, MainMenuHandlers handlers)
    : bar_(bar), busy_(busy), handlers_(std::move(handlers))
{
    AddFileMenu();
    AddMenu("Product", "&Product");
    AddOptionsMenu();
    AddMenu("Communication", "Communication");
    AddHelpMenu();
    ShowProducts({});
    ShowLinks({});
}

QMenu& MainMenus::AddMenu(const char* name, const QString& caption)
{
    QMenu* menu = bar_.addMenu(caption);
    menu->setObjectName(name);
    return *menu;
}

QAction& MainMenus::AddEntry(QMenu& menu, const char* name, const QString& caption, std::function<void()> chosen)
{
    QAction* entry = menu.addAction(caption);
    entry->setObjectName(name);
    QObject::connect(entry, &QAction::triggered, this, [this, chosen = std::move(chosen)] {
        Guarded([&] {
            if (!busy_.IsBusy())
                chosen();
        });
    });
    return *entry;
}

void MainMenus::AddFileMenu()
{
    QMenu& menu = AddMenu("File", "File");
    AddEntry(menu, "Open", "Open", handlers_.open).setShortcut(QKeySequence::Open);
    AddEntry(menu, "Save", "Save", handlers_.save).setShortcut(QKeySequence::Save);
    AddEntry(menu, "SaveAs", "Save As", handlers_.saveAs).setShortcut(QKeySequence("Ctrl+Shift+S"));
    menu.addSeparator();
    AddEntry(menu, "Quit", "Quit", handlers_.quit).setShortcut(QKeySequence("Ctrl+Q"));
}

void MainMenus::AddOptionsMenu()
{
    QMenu& menu = AddMenu("Options", "&Options");
    QMenu* preferences = menu.addMenu("&Preferences");
    preferences->setObjectName("PreferenceMenu");
    const auto addCheck = [&](const char* name, const QString& caption, const std::function<void(bool)>& changed) {
        QAction& entry =
            AddEntry(*preferences, name, caption, [this, name, changed] { changed(Entry(name)->isChecked()); });
        entry.setCheckable(true);
    };
    addCheck("AutoLoadFileOpen", "AutoLoad on File Open", handlers_.autoLoadFileOpen);
    addCheck("AutoConnect", "AutoConnect", handlers_.autoConnect);
    AddEntry(menu, "SerialPortSettings", "Serial Settings", handlers_.serialSettings);
}

void MainMenus::AddHelpMenu()
{
    QMenu& menu = AddMenu("Help", "Help");
    AddEntry(menu, "HelpContents", "Contents", handlers_.helpContents).setShortcut(QKeySequence::HelpContents);
    AddEntry(menu, "HotKeys", "Hot Keys", handlers_.hotKeys);
    AddEntry(menu, "VersionDlg", "Version Info", handlers_.version);
}

void MainMenus::ShowRecentFiles(const std::vector<std::string>& paths)
{
    auto* menu = bar_.findChild<QMenu*>("File");
    const QList<QAction*> entries = menu->actions();
    const qsizetype own = entries.indexOf(Entry("Quit")) + 1;
    for (QAction* old : entries.mid(own))
        RemoveEntry(*menu, *old);
    if (!paths.empty())
        menu->addSeparator();
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const std::string name = "RecentFile_" + std::to_string(i);
        const QString caption = QString("&%1  ").arg(i + 1) + ToQt(paths[i]).replace("&", "&&");
        AddEntry(*menu, name.c_str(), caption, [this, path = paths[i]] { handlers_.recentFile(path); });
    }
}

QAction* MainMenus::Entry(const char* name) const { return bar_.findChild<QAction*>(name); }

void MainMenus::Enable(bool enabled)
{
    for (QAction* top : bar_.actions())
        top->setEnabled(enabled);
}

void MainMenus::ShowProducts(const std::vector<MenuChoice>& products)
{
    ShowChoices("Product", "ProductMenu_", products, "No Products", handlers_.product);
}

void MainMenus::ShowLinks(const std::vector<MenuChoice>& links)
{
    ShowChoices("Communication", "CommLinkMenu_", links, "Select Product", handlers_.link);
}

void MainMenus::Check(const char* entry, bool checked) { Entry(entry)->setChecked(checked); }

void MainMenus::ShowEntry(const char* entry, bool visible)
{
    Entry(entry)->setVisible(visible);
    Entry(entry)->setEnabled(visible);
}

void MainMenus::ShowChoices(const char* menu, const char* entry, const std::vector<MenuChoice>& choices,
                            const QString& whenEmpty, const std::function<void(const std::string&)>& chosen)
{
    auto* shown = bar_.findChild<QMenu*>(menu);
    for (QAction* old : shown->actions())
        RemoveEntry(*shown, *old);
    if (choices.empty()) {
        QAction& none = AddEntry(*shown, (std::string(entry) + "0").c_str(), whenEmpty, [] {});
        none.setEnabled(false);
    }
    for (std::size_t i = 0; i < choices.size(); ++i) {
        const MenuChoice& choice = choices[i];
        const std::string name = entry + std::to_string(i);
        QAction& added =
            AddEntry(*shown, name.c_str(), ToQt(choice.caption).replace("&", "&&"), [this, name, choice, chosen] {
                if (QAction* own = Entry(name.c_str()))
                    own->setChecked(choice.checked); // the mark follows what really happens
                chosen(choice.caption);
            });
        added.setCheckable(true);
        added.setChecked(choice.checked);
    }
}

}

#pragma once

#include "ui/advanced/IRegisterView.h"
#include "ui/common/BusyState.h"

#include <QMenuBar>

#include <functional>
#include <string>
#include <vector>

namespace tarvex {

/// What the entries of the main window's menus do.
struct MainMenuHandlers {
    std::function<void()> open, save, saveAs, quit;
    std::function<void(const std::string&)> recentFile, product, link;
    std::function<void(bool)> autoLoadFileOpen, autoConnect;
    std::function<void()> serialSettings;
    std::function<void()> helpContents, hotKeys, version;
};

/// The main window's menus. Their entries are found by object name; an entry chosen while work runs does nothing.
class MainMenus : public QObject {
public:
    MainMenus(QMenuBar& bar, BusyState& busy, MainMenuHandlers handlers);

    /// All top menus together.
    void Enable(bool enabled);
    /// The files below Quit, in this order.
    void ShowRecentFiles(const std::vector<std::string>& paths);
    void ShowProducts(const std::vector<MenuChoice>& products);
    void ShowLinks(const std::vector<MenuChoice>& links);
    void Check(const char* entry, bool checked);
    void ShowEntry(const char* entry, bool visible);

private:
    QMenu& AddMenu(const char* name, const QString& caption);
    QAction& AddEntry(QMenu& menu, const char* name, const QString& caption, std::function<void()> chosen);
    void AddFileMenu();
    void AddOptionsMenu();
    void AddHelpMenu();
    void ShowChoices(const char* menu, const char* entry, const std::vector<MenuChoice>& choices,
                     const QString& whenEmpty, const std::function<void(const std::string&)>& chosen);
    QAction* Entry(const char* name) const;

    QMenuBar& bar_;
    BusyState& busy_;
    MainMenuHandlers handlers_;
};

}

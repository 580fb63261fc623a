#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tarvex {

/// One entry of a wizard's menus, as data: the window makes an action of it, or a submenu where it holds entries.
struct MenuEntry {
    std::string name; ///< object name by which entry and state are found later, such as "ReSync" or "Resolution0_3"
    std::string caption;
    std::function<void()> chosen = {}; ///< not called while transfers run; its errors are logged and shown
    /// It shows a mark that the product sets with CheckEntry; being chosen does not change it.
    bool checkable = false;
    bool enabled = true;
    std::vector<MenuEntry> entries = {};
};

/// An element of the built-in list, which is used where the init file names no pictures.
struct BuiltInElement {
    std::string name;
    std::string picture;       ///< file name in the program's picture folder
    std::string imageKey = {}; ///< names the picture in the image list; empty for the element's own name
};

/// Captions of the common menus that differ from wizard to wizard.
struct CommonCaptions {
    std::string save = "Save";
    std::string saveAs = "&Save As";
    std::string edit = "Edit";
    std::string undo = "Undo last change";
    std::string options = "Options";
};

/// What one kind of wizard is, beside what it does: the frame and its window are built from it.
struct WizardDescription {
    std::string windowName;    ///< object name of the window, such as "Vexlon_Wizard"
    std::string viewName;      ///< the view's name when nobody gave a caption at start
    std::string designCaption; ///< the caption when nobody gave one at start
    std::string realLink;      ///< the kind of link that gets the "connected" picture, such as "USB-HID Device"
    std::string failureHelpTip = "CommunicationFailure.rtf";
    CommonCaptions captions = {};
    std::vector<MenuEntry> options = {};  ///< entries of the Options menu
    std::vector<std::string> panels = {}; ///< keys of further status panels, each a blank at first
    /// Menus and entries, by object name, that are off while communication fails.
    std::vector<std::string> offOnFailure = {"File", "Edit", "Options"};
    std::string closeQuestionEnd = {};     ///< behind "Save ... file before closing"
    bool savesUnderOldNameOnClose = false; ///< Yes to that question saves under the known name instead of asking
    std::vector<BuiltInElement> elements = {};
};

}

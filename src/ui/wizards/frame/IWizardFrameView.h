#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvex {

class IProgress;

/// One item of the element list. The name is text and tag of the item.
struct ElementItem {
    std::string name;
    std::string picture;       ///< full path
    std::string imageKey = {}; ///< names the picture in the image list; empty for the item's own name

    bool operator==(const ElementItem&) const = default;
};

/// What the scroll bar is set to. Positions are those of the bar, not values of the board.
struct BarState {
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t position = 0;
    std::int32_t largeChange = 1;
    std::int32_t smallChange = 1;

    bool operator==(const BarState&) const = default;
};

/// A node of the navigation tree; the tree is shown unfolded.
struct TreeNode {
    std::string key; ///< names the node in clicks and checks; unique in the tree
    std::string caption;
    std::vector<TreeNode> children = {};
};

enum class TextTone { Normal, Alert };

/// The window of a wizard as its rules see it. It decides nothing: it shows what it is told, and reports to the frame
/// what the user did. Only MoveBar makes it report something by itself.
class IWizardFrameView {
public:
    virtual ~IWizardFrameView() = default;

    // Element list and bar.
    virtual void ShowElements(const std::vector<ElementItem>& elements) = 0;
    /// Text of the selected item; empty when none is selected.
    virtual std::string SelectedElement() const = 0;
    /// Marks an item as the selected one; an unknown name leaves none selected.
    virtual void SelectElement(const std::string& name) = 0;
    virtual void ShowBar(const BarState& bar) = 0;
    virtual BarState Bar() const = 0;
    /// Moves the bar as the user would: when the position differs, the frame hears of the change before this returns.
    virtual void MoveBar(std::int32_t position) = 0;
    virtual void EnableBar(bool enabled) = 0;

    // What is shown of the selected element.
    virtual void ShowValueText(const std::string& text, TextTone tone) = 0;
    virtual void ShowDescription(const std::string& text) = 0;
    virtual void ShowPicture(const std::string& path) = 0;
    virtual void ShowHelpPicture(const std::string& path) = 0;
    /// Shows rich text (the content of an RTF file), or plain text.
    virtual void ShowHelpTip(const std::string& richText) = 0;
    virtual void ShowHelpTipText(const std::string& text) = 0;

    // Caption and status bar.
    virtual void ShowTitle(const std::string& caption) = 0;
    /// Text of the "Message" panel, which vanishes after a few seconds.
    virtual void ShowMessage(const std::string& text) = 0;
    /// Text of one of the panels that the description names.
    virtual void ShowPanel(const std::string& key, const std::string& text) = 0;
    /// Picture of the "Connected" panel, and in words what it says.
    virtual void ShowConnection(const std::string& picture, const std::string& meaning) = 0;
    virtual IProgress& Progress() = 0;

    // Navigation tree.
    virtual void ShowTree(const std::vector<TreeNode>& roots) = 0;
    /// Marks a node as the selected one without a click; an unknown key leaves none selected.
    virtual void SelectNode(const std::string& key) = 0;
    /// Shows or hides check boxes in the tree; hiding them unticks all.
    virtual void ShowTreeChecks(bool shown) = 0;
    /// Keys of the ticked nodes, from top to bottom.
    virtual std::vector<std::string> CheckedNodes() const = 0;

    // Menus and entries, found by object name; unknown names change nothing.
    virtual void EnableEntry(const std::string& name, bool enabled) = 0;
    /// Keeps an entry off, whatever EnableEntry says or has said, until it is let go again.
    virtual void BlockEntry(const std::string& name, bool blocked) = 0;
    virtual void CheckEntry(const std::string& name, bool checked) = 0;
    virtual bool IsEntryChecked(const std::string& name) const = 0;
    virtual void CaptionEntry(const std::string& name, const std::string& caption) = 0;
    virtual std::string EntryCaption(const std::string& name) const = 0;
};

}

#pragma once

#include "config/IProgress.h"
#include "ui/wizards/frame/IWizardFrameView.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tarvex {

/// A wizard's window without a window: keeps what it was last told, and all messages.
class FakeWizardFrameView : public IWizardFrameView, private IProgress {
public:
    /// What the frame is told when the bar moves.
    std::function<void()> barChanged;

    void ShowElements(const std::vector<ElementItem>& shown) override { elements = shown; }
    std::string SelectedElement() const override { return selected; }
    void SelectElement(const std::string& name) override { selected = name; }
    void ShowBar(const BarState& shown) override { bar = shown; }
    BarState Bar() const override { return bar; }
    void MoveBar(std::int32_t position) override
    {
        if (position == bar.position)
            return;
        bar.position = position;
        barChanged();
    }
    void EnableBar(bool enabled) override { barEnabled = enabled; }
    void ShowValueText(const std::string& text, TextTone tone) override
    {
        valueText = text;
        alert = tone == TextTone::Alert;
    }
    void ShowDescription(const std::string& text) override { description = text; }
    void ShowPicture(const std::string& path) override { picture = path; }
    void ShowHelpPicture(const std::string& path) override { helpPicture = path; }
    void ShowHelpTip(const std::string& richText) override { tip = richText; }
    void ShowHelpTipText(const std::string& text) override { tip = text; }
    void ShowTitle(const std::string& caption) override { title = caption; }
    void ShowMessage(const std::string& text) override { messages.push_back(text); }
    void ShowPanel(const std::string& key, const std::string& text) override { panels[key] = text; }
    void ShowConnection(const std::string& path, const std::string&) override { connection = path; }
    IProgress& Progress() override { return *this; }
    void ShowTree(const std::vector<TreeNode>& roots) override { tree = roots; }
    void SelectNode(const std::string& key) override { node = key; }
    void ShowTreeChecks(bool shown) override { treeChecks = shown; }
    std::vector<std::string> CheckedNodes() const override { return checkedNodes; }
    void EnableEntry(const std::string& name, bool enabled) override
    {
        enabled ? off_.erase(name) : off_.insert(name).second;
        ShowEntry(name);
    }
    void BlockEntry(const std::string& name, bool on) override
    {
        on ? blocked_.insert(name).second : blocked_.erase(name);
        ShowEntry(name);
    }
    void CheckEntry(const std::string& name, bool on) override
    {
        on ? checked.insert(name).second : checked.erase(name);
    }
    bool IsEntryChecked(const std::string& name) const override { return checked.contains(name); }
    void CaptionEntry(const std::string& name, const std::string& caption) override { captions[name] = caption; }
    std::string EntryCaption(const std::string& name) const override
    {
        const auto found = captions.find(name);
        return found == captions.end() ? std::string() : found->second;
    }

    std::string Message() const { return messages.empty() ? std::string() : messages.back(); }

    std::vector<ElementItem> elements;
    std::string selected;
    BarState bar;
    bool barEnabled = false;
    std::string valueText;
    bool alert = false;
    std::string description, picture, helpPicture, tip, title, connection, node;
    std::vector<std::string> messages;
    std::map<std::string, std::string> panels, captions;
    std::vector<TreeNode> tree;
    bool treeChecks = false;
    std::vector<std::string> checkedNodes;
    std::set<std::string> disabled; ///< menus and entries that are off
    std::set<std::string> checked;
    std::vector<std::string> progress;

private:
    void ShowEntry(const std::string& name)
    {
        off_.contains(name) || blocked_.contains(name) ? disabled.insert(name).second : disabled.erase(name);
    }
    void IProgress_SetRange(std::int32_t steps, std::int32_t start) override
    {
        progress.push_back(std::to_string(start) + " of " + std::to_string(steps));
    }
    void IProgress_TickProgress(std::int32_t steps) override { progress.push_back("tick " + std::to_string(steps)); }
    void IProgress_Show(bool visible) override { progress.emplace_back(visible ? "show" : "hide"); }

    std::set<std::string> off_, blocked_;
};

}

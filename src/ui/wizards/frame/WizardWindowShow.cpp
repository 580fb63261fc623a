#include "ui/common/WindowTools.h"
#include "ui/wizards/frame/AdjustBar.h"
#include "ui/wizards/frame/ElementList.h"
#include "ui/wizards/frame/PictureTile.h"
#include "ui/wizards/frame/RtfDocument.h"
#include "ui/wizards/frame/WizardMenus.h"
#include "ui/wizards/frame/WizardTree.h"
#include "ui/wizards/frame/WizardWindow.h"

#include <QLabel>
#include <QProgressBar>
#include <QSignalBlocker>
#include <QTextBrowser>

#include <algorithm>

namespace tarvex {

namespace {

constexpr int kDarkBelow = 128;

/// Red that can be read on the window's own background.
QColor AlertColor(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < kDarkBelow ? QColor(255, 110, 110) : QColor(255, 0, 0);
}

}

void WizardWindow::ShowElements(const std::vector<ElementItem>& elements) { ListView1->ShowElements(elements); }

std::string WizardWindow::SelectedElement() const { return ListView1->Selected(); }

void WizardWindow::SelectElement(const std::string& name) { ListView1->Select(name); }

void WizardWindow::ShowBar(const BarState& bar) { HScroll1->State(bar); }

BarState WizardWindow::Bar() const { return HScroll1->State(); }

void WizardWindow::MoveBar(std::int32_t position)
{
    const int before = HScroll1->value();
    {
        const QSignalBlocker quiet(HScroll1);
        HScroll1->setValue(position);
    }
    if (HScroll1->value() != before)
        frame_.BarChanged();
}

void WizardWindow::EnableBar(bool enabled) { HScroll1->setEnabled(enabled); }

void WizardWindow::ShowValueText(const std::string& text, TextTone tone)
{
    QPalette palette = StatusText->parentWidget()->palette();
    const QColor color = tone == TextTone::Alert ? AlertColor(palette) : palette.color(QPalette::ButtonText);
    palette.setColor(QPalette::WindowText, color);
    StatusText->setPalette(palette);
    StatusText->setText(ToQt(text));
    StatusText->setAccessibleDescription(ToQt(text)); // its name hides the text from a screen reader
    HScroll1->setAccessibleDescription(ToQt(text));
}

void WizardWindow::ShowDescription(const std::string& text)
{
    Label1->setText(ListView1->selectedItems().isEmpty() ? QString() : ListView1->selectedItems().front()->text());
    Description->setText(ToQt(text));
    HScroll1->setAccessibleName(Label1->text().isEmpty() ? "Value of the setting" : Label1->text());
}

void WizardWindow::ShowPicture(const std::string& path) { Picture1->Show(ToQt(path)); }

void WizardWindow::ShowHelpPicture(const std::string& path) { HelpPicture->Show(ToQt(path)); }

void WizardWindow::ShowHelpTip(const std::string& richText)
{
    QTextDocument& document = *HelpTipPanel->document();
    document.setDefaultFont(HelpTipPanel->font());
    ShowRtf(document, richText, HelpTipPanel->palette().color(QPalette::Base));
    HelpTipPanel->moveCursor(QTextCursor::Start);
}

void WizardWindow::ShowHelpTipText(const std::string& text) { HelpTipPanel->setPlainText(ToQt(text)); }

void WizardWindow::ShowTitle(const std::string& caption) { setWindowTitle(ToQt(caption)); }

void WizardWindow::ShowMessage(const std::string& text)
{
    message_->setText(ToQt(text));
    message_->setToolTip(ToQt(text));
    if (text.empty())
        StatusBarRefreshTimer.stop();
    else
        StatusBarRefreshTimer.start();
}

void WizardWindow::ShowPanel(const std::string& key, const std::string& text)
{
    if (QLabel* panel = panels_.value(ToQt(key))) {
        panel->setText(ToQt(text));
        panel->setAccessibleDescription(ToQt(text));
    }
}

void WizardWindow::ShowConnection(const std::string& picture, const std::string& meaning)
{
    connected_->Show(ToQt(picture));
    connected_->setToolTip(ToQt(meaning));
    connected_->setAccessibleDescription(ToQt(meaning));
}

void WizardWindow::ShowTree(const std::vector<TreeNode>& roots) { TreeView1->ShowNodes(roots); }

void WizardWindow::SelectNode(const std::string& key) { TreeView1->Select(key); }

void WizardWindow::ShowTreeChecks(bool shown) { TreeView1->ShowChecks(shown); }

std::vector<std::string> WizardWindow::CheckedNodes() const { return TreeView1->Checked(); }

void WizardWindow::EnableEntry(const std::string& name, bool enabled) { menus_->Enable(name, enabled); }

void WizardWindow::BlockEntry(const std::string& name, bool blocked) { menus_->Block(name, blocked); }

void WizardWindow::CheckEntry(const std::string& name, bool checked) { menus_->Check(name, checked); }

bool WizardWindow::IsEntryChecked(const std::string& name) const { return menus_->IsChecked(name); }

void WizardWindow::CaptionEntry(const std::string& name, const std::string& caption) { menus_->Caption(name, caption); }

std::string WizardWindow::EntryCaption(const std::string& name) const { return menus_->Caption(name); }

void WizardWindow::IProgress_SetRange(std::int32_t steps, std::int32_t start)
{
    ProgressBar1->setRange(start, std::max(steps, start + 1)); // an empty range would show a bar that never ends
    ProgressBar1->setValue(start);
}

void WizardWindow::IProgress_TickProgress(std::int32_t steps)
{
    ProgressBar1->setValue(std::min(ProgressBar1->value() + steps, ProgressBar1->maximum()));
}

void WizardWindow::IProgress_Show(bool visible) { ProgressBar1->setVisible(visible); }

}

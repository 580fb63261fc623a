#include "base/Error.h"
#include "shell/Document.h"
#include "ui/wizards/frame/BarRules.h"
#include "ui/wizards/frame/HelpTips.h"
#include "ui/wizards/frame/WizardElements.h"
#include "ui/wizards/frame/WizardFrame.h"

#include <algorithm>

namespace tarvex {

void WizardFrame::ElementClicked(const std::string& element)
{
    if (document_)
        Select(element);
}

bool WizardFrame::IsCurrentSelected() const { return !current_.empty() && view_.SelectedElement() == current_; }

void WizardFrame::SelectAgain()
{
    std::string element = view_.SelectedElement();
    if (element.empty())
        element = current_;
    if (element.empty() && !elements_.empty())
        element = elements_.front().name;
    if (element.empty())
        return;
    view_.SelectElement(element);
    Select(element);
}

void WizardFrame::Select(const std::string& element)
{
    const auto busy = services_.beginBusy();
    current_.clear(); // until the board has told its value
    Attempt([&] { ReadAndShow(element); });
    if (current_.empty()) // not before: a bar that is off loses the keyboard
        view_.EnableBar(false);
}

void WizardFrame::ReadAndShow(const std::string& element)
{
    ShowElement(element);
    if (const auto missing = product_.MissingTarget()) {
        Say(missing->message);
        view_.ShowValueText(missing->valueText, TextTone::Alert);
        return;
    }
    std::int32_t value = 0;
    const auto read = [&] { value = product_.ReadElement(element); };
    if (Read("Wizard::SelectElement", element, read))
        ShowRange(element, value);
    else if (const std::string message = product_.UnreadMessage(element); !message.empty())
        Say(message);
}

void WizardFrame::ShowElement(const std::string& element)
{
    const auto found =
        std::find_if(elements_.begin(), elements_.end(), [&](const ElementItem& each) { return each.name == element; });
    view_.ShowPicture(found == elements_.end() ? PicturePath("") : found->picture);
    view_.ShowHelpPicture(PicturePath(product_.HelpPicture(element)));
    view_.ShowDescription(TextsOfElement(Controller(), element).description);
    ShowTip(element);
}

void WizardFrame::ShowTip(const std::string& element)
{
    const ElementTexts texts = TextsOfElement(Controller(), element);
    const HelpTip tip = texts.known ? FindHelpTip(services_.files, services_.state, texts.helpTip) : HelpTip{};
    if (tip.richText.empty())
        view_.ShowHelpTipText(tip.text);
    else
        view_.ShowHelpTip(tip.richText);
    if (!tip.message.empty()) {
        services_.errorLog.LogError(tip.message, kErrFileNotFound, "Wizard::ShowTip");
        Say(tip.message);
    }
}

void WizardFrame::ShowRange(const std::string& element, std::int32_t value)
{
    const auto largeStep = [this](std::int32_t range) { return product_.LargeStep(range); };
    BarSetting setting;
    try {
        setting = SetRange(value, product_.Bounds(element), largeStep);
    } catch (const Error& error) {
        if (error.Number() != kErrValueOutOfRange)
            throw;
        services_.errorLog.LogCurrentError();
        view_.ShowBar(kUnusableBar);
        view_.ShowValueText("", TextTone::Normal);
        Say("The value " + std::to_string(value) + " lies outside the range of " + element + ".");
        return;
    }
    reversed_ = setting.reversed;
    view_.ShowBar(setting.bar);
    view_.EnableBar(true);
    Say("");
    current_ = element;
    history_ = {setting.bar.position, setting.bar.position};
    ShowValue();
}

void WizardFrame::ShowValue()
{
    view_.ShowValueText(CutDecimals(product_.ValueText(current_, view_.Bar().position)), TextTone::Normal);
}

void WizardFrame::BarChanged()
{
    if (!document_ || !IsCurrentSelected())
        return;
    Attempt([this] {
        const std::int32_t position = view_.Bar().position;
        const std::int32_t before = history_.last != -1 ? history_.last : history_.selectedAt;
        ShowValue();
        try {
            if (!WriteAt(position))
                return ShowPosition(before);
        } catch (const Error&) {
            ShowPosition(before); // the board has not taken the new one
            throw;
        }
        history_.undo = before; // in place of a code of the product, too
        history_.last = position;
        view_.EnableEntry("Undo", true);
    });
}

/// After a failed write: of several registers some may have been written.
void WizardFrame::ReadAgain()
{
    product_.Image().Forget();
    if (current_.empty())
        return;
    const BarHistory before = history_;
    const std::int32_t position = view_.Bar().position;
    SelectAgain();
    if (!current_.empty() && view_.Bar().position == position)
        history_ = before; // nothing came of the write, and the steps before it can still be undone
}

/// Moves the bar without a write.
void WizardFrame::ShowPosition(std::int32_t position)
{
    BarState bar = view_.Bar();
    bar.position = position;
    view_.ShowBar(bar);
    if (!link_.HasFailed())
        ShowValue();
}

/// False when nothing was written, because the link is down or the product left it.
bool WizardFrame::WriteAt(std::int32_t position)
{
    const std::string element = current_;
    const std::int32_t value = ValueAt(view_.Bar(), reversed_, position);
    bool written = false;
    const auto write = [&] { written = product_.WriteElement(element, value); };
    if (!Transfer(kErrWriteFailed, "Wizard::SetElementValue", "Failed to write " + element, write))
        return false;
    if (written) {
        files_.MarkDirty();
        TellOtherViews(kPropertyChanged, element);
    }
    return written;
}

void WizardFrame::OfferUndo(std::int32_t code)
{
    history_.undo = code;
    view_.EnableEntry("Undo", true);
}

void WizardFrame::Undo()
{
    Attempt([this] {
        if (history_.undo < -1) {
            product_.Undo(history_.undo);
            view_.EnableEntry("Undo", false);
        } else if (history_.undo == -1 || history_.undo == view_.Bar().position || current_.empty()) {
            Say("Nothing to undo");
        } else {
            UndoTo(history_.undo);
        }
    });
}

void WizardFrame::UndoTo(std::int32_t position)
{
    Say("Undoing " + current_);
    if (!WriteAt(position)) {
        if (!link_.HasFailed())
            Say("Nothing was undone");
        return;
    }
    view_.MoveBar(position);
    if (!link_.HasFailed())
        ShowValue();
    history_.undo = -1;
    view_.EnableEntry("Undo", false);
}

void WizardFrame::LinkRecovered()
{
    const std::string element = current_.empty() ? view_.SelectedElement() : current_;
    if (element.empty() || !document_)
        return;
    ShowTip(element);
    if (!current_.empty())
        ShowValue();
}

}

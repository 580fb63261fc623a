#include "ui/advanced/HexFieldTextBox.h"

#include "ui/advanced/HexFieldRules.h"
#include "ui/common/Guarded.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QValidator>

#include <optional>

namespace tarvex {

namespace {

/// One byte for each character, so that a step of the caret is a step in the text; what is not Latin is no digit
/// anyway.
std::string Characters(const QString& text) { return text.toLatin1().toStdString(); }

/// Refuses whole every edit that the judge refuses, also those that come without a key.
class JudgingValidator : public QValidator {
public:
    explicit JudgingValidator(HexFieldTextBox& box) : QValidator(&box), box_(box) {}
    State validate(QString& text, int&) const override { return box_.Accepts(text) ? Acceptable : Invalid; }

private:
    HexFieldTextBox& box_;
};

bool IsPrintable(const QKeyEvent& event)
{
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

std::optional<std::string> TextAfterKey(const QKeyEvent& event, const HexFieldText& text)
{
    if (event.matches(QKeySequence::Cut))
        return TextAfterCut(text);
    if (event.matches(QKeySequence::Paste))
        return TextAfterInsert(text, Characters(QApplication::clipboard()->text()));
    if (event.matches(QKeySequence::Delete))
        return TextAfterDelete(text);
    if (event.key() == Qt::Key_Backspace && !(event.modifiers() & ~Qt::ShiftModifier))
        return TextAfterBackspace(text);
    if (IsPrintable(event))
        return TextAfterInsert(text, Characters(event.text()));
    return std::nullopt;
}

}

HexFieldTextBox::HexFieldTextBox(Judge judge, QWidget* parent) : QLineEdit(parent), judge_(std::move(judge))
{
    setValidator(new JudgingValidator(*this));
}

bool HexFieldTextBox::Accepts(const QString& text) const { return judge_(Characters(text)); }

void HexFieldTextBox::SendKey(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    setFocus(Qt::PopupFocusReason);
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(this, &press);
}

bool HexFieldTextBox::IsRefused(const QKeyEvent& event) const
{
    const std::string whole = Characters(text());
    const auto start = static_cast<std::size_t>(hasSelectedText() ? selectionStart() : cursorPosition());
    const auto length = static_cast<std::size_t>(hasSelectedText() ? selectionLength() : 0);
    const std::string_view view = whole;
    const HexFieldText parts{view.substr(0, start), view.substr(start, length), view.substr(start + length)};
    const auto projected = TextAfterKey(event, parts);
    return projected && !judge_(*projected);
}

void HexFieldTextBox::keyPressEvent(QKeyEvent* event)
{
    if (!isReadOnly() && IsRefused(*event))
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}

void HexFieldTextBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || reason == Qt::MenuBarFocusReason)
        return; // the focus only comes back: the selection that the user made stays
    selectAll();
    focusedByMouse_ = reason == Qt::MouseFocusReason;
}

void HexFieldTextBox::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::RightButton)
        return QLineEdit::mousePressEvent(event);
    focusedByMouse_ = false;
    Guarded([&] { menu_->popup(event->globalPosition().toPoint()); });
}

void HexFieldTextBox::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    if (focusedByMouse_ && !hasSelectedText()) // the press set the caret after the focus had selected the text
        selectAll();
    focusedByMouse_ = false;
}

void HexFieldTextBox::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Mouse) // the mouse has opened it with the press
        Guarded([&] { menu_->popup(event->globalPos()); });
}

}

#include "ui/advanced/UI_RegisterItemCell.h"

#include "ui/advanced/UI_RegisterItem.h"
#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>

namespace tarvex {

UI_RegisterItemCell::UI_RegisterItemCell(std::int16_t bit, UI_RegisterItem& row) : QLineEdit(&row), row_(row), bit_(bit)
{
    setObjectName("Bit_" + QString::number(bit));
    setAlignment(Qt::AlignCenter);
    setAcceptDrops(false);
    setContextMenuPolicy(Qt::NoContextMenu);
    setCursor(Qt::ArrowCursor);
    QObject::connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!showing_) // assistive tools set the text directly
            Guarded([&] { row_.ehBit_TextSet(bit_, text == "0" || text == "1"); });
    });
}

void UI_RegisterItemCell::Show(char digit)
{
    const QScopedValueRollback<bool> showing(showing_, true);
    if (Digit() != digit || text().size() > 1)
        setText(digit == ' ' ? QString() : QString(QLatin1Char(digit)));
}

char UI_RegisterItemCell::Digit() const { return text().isEmpty() ? ' ' : text().front().toLatin1(); }

void UI_RegisterItemCell::Look(const BitLook& look)
{
    if (look == look_ && testAttribute(Qt::WA_SetPalette))
        return;
    look_ = look;
    if (isReadOnly() != look.locked)
        setReadOnly(look.locked);
    QPalette palette;
    palette.setColor(QPalette::Base, QColor::fromRgb(look.colour));
    palette.setColor(QPalette::Text, QColor::fromRgb(TextColourOn(look.colour)));
    setPalette(palette);
    ShowTip();
}

void UI_RegisterItemCell::Prompt(const std::string& text)
{
    prompt_ = text;
    ShowTip();
}

void UI_RegisterItemCell::ShowTip() { setToolTip(ToQt(BitTip(prompt_, look_.accessName))); }

void UI_RegisterItemCell::TypeDigit(QChar digit)
{
    if (!Locked() && (digit == '0' || digit == '1'))
        row_.ehBit_KeyPress(bit_, digit.toLatin1());
}

void UI_RegisterItemCell::keyPressEvent(QKeyEvent* event)
{
    const bool plain = !(event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier));
    if (event->matches(QKeySequence::Copy) || event->matches(QKeySequence::SelectAll)) {
        QLineEdit::keyPressEvent(event);
    } else if (plain && event->key() == Qt::Key_Space) {
        Guarded([this] { row_.ehBit_Click(bit_); });
    } else if (plain && (event->text() == "0" || event->text() == "1")) {
        Guarded([&] { TypeDigit(event->text().front()); });
    } else {
        event->ignore();
    }
}

void UI_RegisterItemCell::mousePressEvent(QMouseEvent* event) { pressed_ = event->button() == Qt::LeftButton; }

void UI_RegisterItemCell::mouseReleaseEvent(QMouseEvent* event)
{
    const bool clicked = pressed_ && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    pressed_ = false;
    if (clicked)
        Guarded([this] { row_.ehBit_Click(bit_); });
}

void UI_RegisterItemCell::mouseDoubleClickEvent(QMouseEvent* event)
{
    pressed_ = false; // the first click of the two has toggled the bit
    if (event->button() == Qt::LeftButton)
        Guarded([this] { row_.ehBit_DblClick(bit_); });
}

void UI_RegisterItemCell::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    deselect(); // the frame marks the focus; a selection would hide the colour
}

void UI_RegisterItemCell::inputMethodEvent(QInputMethodEvent* event)
{
    if (event->commitString().size() == 1)
        Guarded([&] { TypeDigit(event->commitString().front()); });
}

void UI_RegisterItemCell::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Text), 2));
    painter.drawRect(rect().adjusted(2, 2, -2, -2));
}

}

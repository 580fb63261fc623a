#include "ui/advanced/UI_RegisterItemLabel.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace tarvex {

UI_RegisterItemLabel::UI_RegisterItemLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

QString UI_RegisterItemLabel::ShownText() const { return fontMetrics().elidedText(text(), Qt::ElideRight, width()); }

bool UI_RegisterItemLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || ShownText() == text())
        return QLabel::event(event);
    const QString tip = toolTip().isEmpty() ? text() : text() + '\n' + toolTip();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip, this);
    return true;
}

void UI_RegisterItemLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), ShownText(),
                          foregroundRole());
}

}

#include "ui/advanced/UI_RegisterItemLabel.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace tarvex {

UI_RegisterItemLabel::UI_RegisterItemLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

bool UI_RegisterItemLabel::Mark(bool marked)
{
    if (marked_ == marked)
        return false;
    marked_ = marked;
    update();
    return true;
}

QFont UI_RegisterItemLabel::ShownFont() const
{
    QFont shown = font();
    shown.setBold(shown.bold() || marked_);
    return shown;
}

QString UI_RegisterItemLabel::ShownText() const
{
    const QFontMetrics metrics(ShownFont());
    const QString star = marked_ ? " *" : "";
    return metrics.elidedText(text(), Qt::ElideRight, width() - metrics.horizontalAdvance(star)) + star;
}

bool UI_RegisterItemLabel::event(QEvent* event)
{
    const bool isCut = !ShownText().startsWith(text());
    if (event->type() != QEvent::ToolTip || !(isCut || marked_))
        return QLabel::event(event);
    QStringList tip;
    if (isCut)
        tip << text();
    if (!toolTip().isEmpty())
        tip << toolTip();
    if (marked_)
        tip << kChanged;
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip.join('\n'), this);
    return true;
}

void UI_RegisterItemLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setFont(ShownFont());
    style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), ShownText(),
                          foregroundRole());
}

}

#include "comm/dialogs/WrappedCheckBox.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

namespace tarvex {

namespace {

constexpr int kNarrowestInLetters = 30;
constexpr int kNoLimit = 1 << 16;

}

/// Where the caption stands when the check box takes this place: beside the indicator.
QRect WrappedCheckBox::CaptionRect(const QRect& box) const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = box;
    return style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
}

QSize WrappedCheckBox::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * kNarrowestInLetters, LineHeight()};
}

QSize WrappedCheckBox::sizeHint() const
{
    const int width = std::min(QCheckBox::sizeHint().width(), minimumSizeHint().width() * 2);
    return {width, heightForWidth(width)};
}

int WrappedCheckBox::heightForWidth(int width) const
{
    const QRect place = CaptionRect({0, 0, width, kNoLimit});
    return std::max(LineHeight(), fontMetrics().boundingRect(place, Qt::TextWordWrap, text()).height());
}

/// The style draws the indicator beside the first line; it knows captions of one line only.
void WrappedCheckBox::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    const QRect caption = CaptionRect(rect());
    option.text.clear();
    option.state.setFlag(QStyle::State_HasFocus, false);
    option.rect.setHeight(std::min(height(), LineHeight()));
    painter.drawControl(QStyle::CE_CheckBox, option);

    const auto alignment = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter);
    painter.drawItemText(caption, static_cast<int>(alignment) | Qt::TextWordWrap, palette(), isEnabled(), text(),
                         QPalette::WindowText);
    if (!focused)
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = caption;
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

}

#include "ui/advanced/UI_RegisterItemLayout.h"

#include <QFontMetrics>
#include <QLineEdit>
#include <QStyle>

#include <algorithm>

namespace tarvex {

namespace {

constexpr int kMargin = 4;
constexpr int kGap = 10;
constexpr int kRowGap = 2;
constexpr int kNameCharacters = 28;
constexpr int kGroupCharacters = 8;
constexpr int kValueDigits = 6; // a register has up to three bytes
constexpr int kBits = 8;
constexpr int kFocusMark = 4;

int WidestDigit(const QFontMetrics& metrics)
{
    int widest = 0;
    for (const char digit : {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'})
        widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
    return widest;
}

/// What a line edit needs beside its text: frame, inner margin and caret.
int EdgeWidth(const QLineEdit& sample)
{
    return 2 * (sample.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &sample) + 2) + 4;
}

}

UI_RegisterItemLayout UI_RegisterItemLayout::For(const QLineEdit& sample)
{
    const QFontMetrics metrics = sample.fontMetrics();
    const int digit = WidestDigit(metrics);
    const int edge = EdgeWidth(sample);
    UI_RegisterItemLayout layout;
    layout.nameLeft = kMargin;
    layout.nameWidth = kNameCharacters * digit;
    layout.groupLeft = layout.nameLeft + layout.nameWidth + kGap;
    layout.groupWidth = std::max(kGroupCharacters * digit, metrics.horizontalAdvance("Address"));
    layout.valueLeft = layout.groupLeft + layout.groupWidth + kGap;
    layout.valueWidth = kValueDigits * digit + edge;
    layout.bitLeft = layout.valueLeft + layout.valueWidth + kGap;
    layout.cellWidth = digit + edge + kFocusMark;
    layout.fieldHeight = sample.sizeHint().height();
    layout.rowHeight = layout.fieldHeight + kRowGap;
    layout.width = layout.bitLeft + kBits * layout.cellWidth + kMargin;
    return layout;
}

}

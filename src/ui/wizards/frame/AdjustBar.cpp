#include "ui/wizards/frame/AdjustBar.h"

#include "ui/common/Guarded.h"
#include "ui/wizards/frame/BarRules.h"

#include <QCoreApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QTimer>

#include <array>
#include <utility>

namespace tarvex {

namespace {

constexpr qreal kMissedPixels = 2; ///< a smaller distance may come from rounding

constexpr std::array<std::pair<int, BarKey>, 6> kKeys{{{Qt::Key_Left, BarKey::Left},
                                                       {Qt::Key_Right, BarKey::Right},
                                                       {Qt::Key_Up, BarKey::Up},
                                                       {Qt::Key_Down, BarKey::Down},
                                                       {Qt::Key_PageUp, BarKey::PageUp},
                                                       {Qt::Key_PageDown, BarKey::PageDown}}};

BarKey FromQtKey(int key)
{
    for (const auto& [qt, own] : kKeys)
        if (qt == key)
            return own;
    return BarKey::Other;
}

/// What a horizontal bar does for a key: Up and Page Up move it left.
QAbstractSlider::SliderAction ActionOf(BarKey key)
{
    switch (key) {
    case BarKey::Left:
    case BarKey::Up:
        return QAbstractSlider::SliderSingleStepSub;
    case BarKey::Right:
    case BarKey::Down:
        return QAbstractSlider::SliderSingleStepAdd;
    case BarKey::PageUp:
        return QAbstractSlider::SliderPageStepSub;
    case BarKey::PageDown:
        return QAbstractSlider::SliderPageStepAdd;
    case BarKey::Other:
        break;
    }
    return QAbstractSlider::SliderNoAction;
}

QMouseEvent MouseEventAt(QEvent::Type type, const QWidget& widget, QPointF global)
{
    const bool move = type == QEvent::MouseMove;
    return QMouseEvent(type, widget.mapFromGlobal(global), global, move ? Qt::NoButton : Qt::LeftButton,
                       move ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
}

}

AdjustBar::AdjustBar(IUserPrompts& prompts, BusyState& busy, QWidget* parent)
    : QScrollBar(Qt::Horizontal, parent), prompts_(prompts), busy_(busy)
{
    setFocusPolicy(Qt::StrongFocus);
    busyChanged_ = busy_.Changed.Subscribe([this](bool isBusy) {
        if (!isBusy && isSliderDown())
            QTimer::singleShot(0, this, [this] { Guarded([this] { FollowMouse(); }); });
    });
}

BarState AdjustBar::State() const { return {minimum(), maximum(), value(), pageStep(), singleStep()}; }

void AdjustBar::State(const BarState& state)
{
    const QSignalBlocker quiet(this);
    setRange(state.minimum, state.maximum);
    setPageStep(state.largeChange);
    setSingleStep(state.smallChange);
    setValue(state.position);
}

void AdjustBar::paintEvent(QPaintEvent* event)
{
    QScrollBar::paintEvent(event);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option; // a bar as such does not show where the keyboard is
    option.initFrom(this);
    QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

void AdjustBar::keyPressEvent(QKeyEvent* event)
{
    const BarKey key = FromQtKey(event->key());
    if (key == BarKey::Other) {
        QScrollBar::keyPressEvent(event);
        return;
    }
    const BarKeyEffect effect = PressBarKey(key, State());
    if (effect.beeps)
        prompts_.Beep();
    setValue(effect.position);
    triggerAction(ActionOf(effect.passedOn));
    event->accept();
}

void AdjustBar::mousePressEvent(QMouseEvent* event)
{
    seenAt_ = event->globalPosition();
    QScrollBar::mousePressEvent(event);
}

void AdjustBar::mouseMoveEvent(QMouseEvent* event)
{
    seenAt_ = event->globalPosition();
    QScrollBar::mouseMoveEvent(event);
}

void AdjustBar::mouseReleaseEvent(QMouseEvent* event)
{
    if (busy_.IsBusy() && isSliderDown())
        releasedAt_ = event->globalPosition();
    else
        QScrollBar::mouseReleaseEvent(event);
}

void AdjustBar::FollowMouse()
{
    if (busy_.IsBusy() || !isSliderDown())
        return;
    const auto released = std::exchange(releasedAt_, std::nullopt);
    const QPointF global = released.value_or(QPointF(QCursor::pos()));
    if ((global - seenAt_).manhattanLength() >= kMissedPixels) {
        QMouseEvent move = MouseEventAt(QEvent::MouseMove, *this, global);
        mouseMoveEvent(&move);
    }
    if (released) {
        QMouseEvent release = MouseEventAt(QEvent::MouseButtonRelease, *this, global);
        QScrollBar::mouseReleaseEvent(&release);
    }
}

}

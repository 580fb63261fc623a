#include "ui/advanced/RegisterDisplay.h"

#include "ui/advanced/UI_RegisterItem.h"
#include "ui/common/Guarded.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace tarvex {

namespace {

/// How many items a key moves up or down; 0 for any other key.
int StepOf(const QKeyEvent& event, int page)
{
    if (event.modifiers() & ~Qt::KeypadModifier)
        return 0;
    switch (event.key()) {
    case Qt::Key_Up:
        return -1;
    case Qt::Key_Down:
        return 1;
    case Qt::Key_PageUp:
        return -page;
    case Qt::Key_PageDown:
        return page;
    default:
        return 0;
    }
}

}

void RegisterDisplay::keyPressEvent(QKeyEvent* event)
{
    const int step = StepOf(*event, rowsInUse_);
    if (step == 0)
        return event->ignore();
    for (int position = 0; position < rowsInUse_; ++position) {
        const int column = RowAtPosition(position).FocusColumn();
        if (column < 0)
            continue;
        const int target = std::clamp<int>(first_ + position + step, 0, std::max(0, ItemCount() - 1));
        Guarded([&] { GoToItem(target, column); });
        return;
    }
    event->ignore();
}

void RegisterDisplay::GoToItem(int item, int column)
{
    const int last = first_ + rowsInUse_ - 1;
    if (item < first_)
        AskToScroll(first_ - item >= rowsInUse_ ? first_ - rowsInUse_ : item);
    else if (item > last)
        AskToScroll(item - last >= rowsInUse_ ? first_ + rowsInUse_ : item - rowsInUse_ + 1);
    if (InView(item))
        RowOf(item).FocusColumn(column);
}

void RegisterDisplay::AskToScroll(int position)
{
    const int target = std::clamp(position, 0, std::max(0, ItemCount() - rowsInUse_));
    if (target != first_)
        RequestScroll.Raise(static_cast<std::int16_t>(target));
}

void RegisterDisplay::wheelEvent(QWheelEvent* event)
{
    event->accept();
    if (event->modifiers() & Qt::ControlModifier)
        return;
    const int angleOfRow =
        std::max(1, QWheelEvent::DefaultDeltasPerStep / std::max(1, QApplication::wheelScrollLines()));
    wheelAngle_ += event->angleDelta().y();
    const int rows = wheelAngle_ / angleOfRow;
    wheelAngle_ -= rows * angleOfRow;
    Guarded([&] { AskToScroll(first_ - rows); });
}

}

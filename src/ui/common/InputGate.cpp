#include "ui/common/InputGate.h"

#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTimer>

namespace tarvex {

namespace {

constexpr const char* kLetThrough = "inputWhileBusy";

bool IsUserInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::InputMethod:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
    case QEvent::HelpRequest:
        return true;
    default:
        return false;
    }
}

/// A button that was held down when the gate closed is let go without a click; a slider's release only stops its
/// repetition and is let through, as it would otherwise move on for ever. True when the event is to be swallowed.
bool SwallowRelease(QObject* watched)
{
    if (!watched->isWidgetType()) // the native window keeps account of the pressed mouse button: it has to hear of it
        return false;
    if (auto* button = qobject_cast<QAbstractButton*>(watched))
        button->setDown(false);
    return qobject_cast<QAbstractSlider*>(watched) == nullptr;
}

/// A button that was pressed by its letter just before clicks by a timer: it is let up without a click. False for any
/// other event, and for a button of the window that has the input.
bool DropClickOfTimer(QObject* watched, QEvent* event)
{
    auto* button = event->type() == QEvent::Timer ? qobject_cast<QAbstractButton*>(watched) : nullptr;
    if (button == nullptr || button->window() == QApplication::activeModalWidget())
        return false;
    const QSignalBlocker silence(button);
    const bool checked = button->isChecked();
    watched->event(event); // the button has to stop its timer itself
    button->setChecked(checked);
    return true;
}

}

void InputGate::LetThrough(QWidget& modalWindow) { modalWindow.setProperty(kLetThrough, true); }

void InputGate::Close()
{
    escapePressed_ = false;
    askedToClose_.clear();
    modalBefore_ = QApplication::activeModalWidget();
    QCoreApplication::instance()->installEventFilter(this);
}

void InputGate::Open() noexcept
{
    QCoreApplication::instance()->removeEventFilter(this);
    if (QWidget* window = askedToClose_)
        QTimer::singleShot(0, window, [window] { Guarded([window] { CloseWindow(*window); }); });
    askedToClose_.clear();
}

bool InputGate::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close)
        return KeepBackClose(watched, event);
    if (DropClickOfTimer(watched, event))
        return true;
    if (!IsUserInput(event->type()) || AnswerIsAwaited())
        return false;
    if (event->type() == QEvent::MouseButtonRelease)
        return SwallowRelease(watched);
    HearKey(event);
    return true;
}

bool InputGate::AnswerIsAwaited() const
{
    const QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr && (modal != modalBefore_ || modal->property(kLetThrough).toBool());
}

bool InputGate::KeepBackClose(QObject* watched, QEvent* event)
{
    auto* window = qobject_cast<QWidget*>(watched); // the native window hears of it first and passes it on
    if (window == nullptr || !event->spontaneous() || AnswerIsAwaited())
        return false;
    event->ignore();
    askedToClose_ = window;
    return true;
}

void InputGate::HearKey(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride)
        event->accept(); // so that no shortcut is looked up
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return;
    escapePressed_ = escapePressed_ || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
}

}

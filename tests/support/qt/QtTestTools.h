#pragma once

#include "ui/common/Guarded.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace tarvex {

/// Lets the event loop run until the condition holds; false when it does not within ten seconds.
inline bool RunUntil(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 10000); }

/// The visible window with an object name, or none.
inline QWidget* VisibleWindow(const QString& objectName)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == objectName && window->isVisible())
            return window;
    return nullptr;
}

/// Does something with a window as soon as it is shown, also from within its own event loop.
template <class Window> void OnceShown(const char* objectName, std::function<void(Window&)> act)
{
    auto* poll = new QTimer(QCoreApplication::instance());
    QObject::connect(poll, &QTimer::timeout, poll, [poll, objectName, act] {
        auto* window = qobject_cast<Window*>(VisibleWindow(QLatin1String(objectName)));
        if (window == nullptr)
            return;
        poll->stop();
        poll->deleteLater();
        act(*window);
    });
    poll->start(0);
}

/// Runs the event loop as main does, with start-up from a timer. The code of the request to end the program, or none
/// when start-up returned without one.
inline std::optional<int> RunProgram(const std::function<void()>& startUp)
{
    QTimer::singleShot(0, QCoreApplication::instance(), [&startUp] {
        Guarded([&startUp] {
            startUp();
            QCoreApplication::exit(0);
        });
    });
    QApplication::exec();
    const auto code = ExitState::Pending() ? std::optional(ExitState::Code()) : std::nullopt;
    ExitState::Reset();
    return code;
}

}

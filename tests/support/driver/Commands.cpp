#include "support/driver/Commands.h"

#include "support/driver/RandomInput.h"

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QKeySequence>
#include <QListWidget>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <map>
#include <stdexcept>

namespace tarvex::driver {

namespace {

[[noreturn]] void Refuse(const std::string& text) { throw std::runtime_error(text); }

bool LiesIn(const QObject* object, const QString& name)
{
    while (object && object->objectName() != name)
        object = object->parent();
    return object != nullptr;
}

QWidget* TryFind(const std::string& name)
{
    const QStringList path = QString::fromStdString(name).split('/');
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->isVisible() && widget->objectName() == path.last() && LiesIn(widget, path.first()))
            return widget;
    return nullptr;
}

QWidget& Find(const std::string& name)
{
    QWidget* widget = TryFind(name);
    if (!widget)
        Refuse("there is no visible widget " + name);
    return *widget;
}

QAction& FindAction(const std::string& name)
{
    const QStringList path = QString::fromStdString(name).split('/');
    for (const QWidget* window : QApplication::topLevelWidgets())
        for (QAction* action : window->findChildren<QAction*>(path.last()))
            if (LiesIn(action, path.first()))
                return *action;
    Refuse("there is no menu entry " + name);
}

/// The text of a control, the title of a window.
std::string TextOf(const QWidget& widget)
{
    const QVariant text = widget.property("text");
    return (text.isValid() ? text.toString() : widget.windowTitle()).toStdString();
}

/// The window that has the keyboard; without a window manager, nobody else gives it the focus.
QWindow& ActiveWindow()
{
    const QWidget* widget = QApplication::activeModalWidget();
    if (!widget)
        widget = QApplication::activeWindow();
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (!widget && window->isVisible())
            widget = window;
    if (!widget)
        Refuse("there is no window to type into");
    if (!widget->isActiveWindow())
        widget->windowHandle()->requestActivate();
    return *widget->windowHandle();
}

void Choose(QAction& action)
{
    if (!action.isEnabled() || !action.isVisible())
        Refuse("the entry " + action.text().toStdString() + " is disabled or hidden");
    action.trigger();
}

void SendKey(const std::string& keys)
{
    const QKeySequence sequence(QString::fromStdString(keys), QKeySequence::PortableText);
    if (sequence.isEmpty() || sequence[0].key() == Qt::Key_unknown)
        Refuse("there is no key " + keys);
    QTest::keyClick(&ActiveWindow(), sequence[0].key(), sequence[0].keyboardModifiers());
}

void TypeText(const std::string& text)
{
    for (const char letter : text)
        QTest::keyClick(&ActiveWindow(), letter);
}

void ClickAt(const QWidget& widget, QPoint point)
{
    QWindow* window = widget.window()->windowHandle();
    window->requestActivate();
    QTest::mouseClick(window, Qt::LeftButton, {}, widget.mapTo(widget.window(), point));
}

void Click(const std::string& name)
{
    const QWidget& widget = Find(name);
    ClickAt(widget, widget.rect().center());
}

/// Clicks the item of a list or tree that has the last part of the name as its text.
void ClickItem(const std::string& name)
{
    const std::size_t end = name.rfind('/');
    auto* view = qobject_cast<QAbstractItemView*>(&Find(name.substr(0, end)));
    const auto found = view ? view->model()->match(view->model()->index(0, 0), Qt::DisplayRole,
                                                   QString::fromStdString(name.substr(end + 1)), 1,
                                                   Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive)
                            : QModelIndexList();
    if (found.isEmpty())
        Refuse("there is no item " + name);
    view->scrollTo(found.front());
    ClickAt(*view->viewport(), view->visualRect(found.front()).center());
}

/// Moves the mouse as time goes on, a pixel each millisecond, whatever the program is doing, and lets go at the end.
void DragOn(QWidget* window, QPoint from, QPoint to, QElapsedTimer time)
{
    const QPoint at = from + QPoint(static_cast<int>(time.elapsed()), 0);
    if (at.x() >= to.x()) {
        QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, to);
        return;
    }
    QTimer::singleShot(1, window, [=] { DragOn(window, from, to, time); });
    QCursor::setPos(window->mapToGlobal(at));
}

/// Drags the handle of a bar that stands at its left end to the right end.
void Drag(const std::string& name)
{
    const QWidget& bar = Find(name);
    QWidget* window = bar.window();
    const QPoint from = bar.mapTo(window, QPoint(bar.height() + 2, bar.height() / 2)); // beside the arrow
    QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, from);
    QElapsedTimer time;
    time.start();
    DragOn(window, from, bar.mapTo(window, QPoint(bar.width() - 1, bar.height() / 2)), time);
}

std::string LinesOf(const std::string& name)
{
    const auto& list = dynamic_cast<const QListWidget&>(Find(name));
    QStringList lines;
    for (int row = 0; row < list.count(); ++row)
        lines << list.item(row)->text();
    return lines.join('|').toStdString();
}

using Input = void (*)(const std::string&);

const std::map<std::string, Input>& Inputs()
{
    static const std::map<std::string, Input> inputs = {
        {"click", Click},
        {"item", ClickItem},
        {"drag", Drag},
        {"menu", [](const std::string& name) { Choose(FindAction(name)); }},
        {"key", SendKey},
        {"type", TypeText},
        {"close", [](const std::string& name) { Find(name).window()->windowHandle()->close(); }},
        {"random", RandomInput},
    };
    return inputs;
}

}

std::string RunCommand(const Fields& command)
{
    if (command.at(0) == "text")
        return TextOf(Find(command.at(1)));
    if (command.at(0) == "lines")
        return LinesOf(command.at(1));
    if (!IsInput(command))
        Refuse("there is no command " + command.at(0));
    Inputs().at(command.at(0))(command.at(1));
    return {};
}

bool IsInput(const Fields& command) { return Inputs().contains(command.at(0)); }

bool ConditionHolds(const Fields& command)
{
    if (command.at(1) == "idle")
        return !QApplication::overrideCursor();
    QWidget* widget = TryFind(command.at(2));
    if (const auto* bar = qobject_cast<QAbstractSlider*>(widget); bar && command.at(1) == "released")
        return !bar->isSliderDown();
    return widget && (command.at(1) == "shown" || TextOf(*widget).find(command.at(3)) != std::string::npos);
}

}

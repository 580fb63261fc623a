#include "support/driver/Commands.h"

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <map>
#include <stdexcept>

namespace tarvex::driver {

namespace {

[[noreturn]] void Refuse(const std::string& text) { throw std::runtime_error(text); }

bool MatchesPath(const QObject* object, const QStringList& path)
{
    if (object->objectName() != path.last())
        return false;
    qsizetype left = path.size() - 1;
    for (const QObject* parent = object->parent(); parent && left > 0; parent = parent->parent())
        left -= parent->objectName() == path.at(left - 1) ? 1 : 0;
    return left == 0;
}

QWidget* TryFind(const std::string& name)
{
    const QStringList path = QString::fromStdString(name).split('/');
    const auto widgets = QApplication::allWidgets();
    const auto found = std::find_if(widgets.begin(), widgets.end(),
                                    [&](auto* widget) { return widget->isVisible() && MatchesPath(widget, path); });
    return found == widgets.end() ? nullptr : *found;
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
    const auto windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows) {
        if (auto* action = window->findChild<QAction*>(QString::fromStdString(name)))
            return *action;
    }
    Refuse("there is no menu entry " + name);
}

std::string TextOf(const QWidget& widget) { return widget.property("text").toString().toStdString(); }

QWidgetList ListVisibleWindows()
{
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* window) { return !window->isVisible(); });
    return windows;
}

/// The window that has the keyboard; without a window manager, nobody else gives it the focus.
QWindow& ActiveWindow()
{
    QWidget* modal = QApplication::activeModalWidget();
    const QWidget* widget = modal ? modal : ListVisibleWindows().value(0);
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

void Click(const std::string& name)
{
    const QWidget& widget = Find(name);
    const QPoint middle = widget.mapTo(widget.window(), widget.rect().center());
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {}, middle);
}

using Input = void (*)(const std::string&);

const std::map<std::string, Input>& Inputs()
{
    static const std::map<std::string, Input> inputs = {
        {"click", Click},
        {"menu", [](const std::string& name) { Choose(FindAction(name)); }},
        {"key", SendKey},
        {"type", TypeText},
        {"close", [](const std::string& name) { Find(name).window()->windowHandle()->close(); }},
    };
    return inputs;
}

}

std::string RunCommand(const Fields& command)
{
    if (command.at(0) == "text")
        return TextOf(Find(command.at(1)));
    if (!IsInput(command))
        Refuse("there is no command " + command.at(0));
    Inputs().at(command.at(0))(command.at(1));
    return {};
}

bool IsInput(const Fields& command) { return Inputs().contains(command.at(0)); }

bool ConditionHolds(const Fields& command)
{
    const QWidget* widget = TryFind(command.at(2));
    return widget && (command.at(1) == "shown" || TextOf(*widget).find(command.at(3)) != std::string::npos);
}

std::string VisibleWindows()
{
    std::string names;
    for (const QWidget* window : ListVisibleWindows())
        names += window->objectName().toStdString() + ' ';
    return names;
}

}

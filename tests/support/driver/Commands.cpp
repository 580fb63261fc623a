#include "support/driver/Commands.h"

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QListWidget>
#include <QTest>
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
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (auto* action = window->findChild<QAction*>(QString::fromStdString(name)))
            return *action;
    Refuse("there is no menu entry " + name);
}

std::string TextOf(const QWidget& widget) { return widget.property("text").toString().toStdString(); }

/// The window that has the keyboard; without a window manager, nobody else gives it the focus.
QWindow& ActiveWindow()
{
    const QWidget* widget = QApplication::activeModalWidget();
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

void Click(const std::string& name)
{
    const QWidget& widget = Find(name);
    const QPoint middle = widget.mapTo(widget.window(), widget.rect().center());
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {}, middle);
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
    const QWidget* widget = TryFind(command.at(2));
    return widget && (command.at(1) == "shown" || TextOf(*widget).find(command.at(3)) != std::string::npos);
}

}

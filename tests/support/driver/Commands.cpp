#include "support/driver/Commands.h"

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>

namespace tarvex::driver {

namespace {

[[noreturn]] void Refuse(const std::string& text) { throw std::runtime_error(text); }

bool IsTopmost(const QWidget* widget)
{
    if (const QWidget* popup = QApplication::activePopupWidget())
        return widget->window() == popup;
    if (const QWidget* modal = QApplication::activeModalWidget())
        return widget->window() == modal;
    return widget->isActiveWindow();
}

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
    QWidget* best = nullptr;
    int bestRank = -1;
    const auto widgets = QApplication::allWidgets();
    for (QWidget* widget : widgets) {
        const int rank = (widget->isVisible() ? 2 : 0) + (IsTopmost(widget) ? 1 : 0);
        if (rank > bestRank && MatchesPath(widget, path)) {
            best = widget;
            bestRank = rank;
        }
    }
    return best;
}

QWidget& Find(const std::string& name)
{
    QWidget* widget = TryFind(name);
    if (!widget)
        Refuse("there is no widget " + name);
    return *widget;
}

QWidget& FindVisible(const std::string& name)
{
    QWidget& widget = Find(name);
    if (!widget.isVisible() || !widget.window()->windowHandle())
        Refuse(name + " is not visible");
    return widget;
}

QAction& FindAction(const std::string& name)
{
    const auto widgets = QApplication::allWidgets();
    for (const QWidget* widget : widgets) {
        const auto actions = widget->actions();
        for (QAction* action : actions) {
            const bool named = action->objectName() == QString::fromStdString(name);
            if (named || (action->menu() && action->menu()->objectName() == QString::fromStdString(name)))
                return *action;
        }
    }
    Refuse("there is no menu entry " + name);
}

std::string Line(const QObject& object, const QString& rest)
{
    return (object.objectName() + '\t' + object.metaObject()->className() + '\t' + rest + '\n').toStdString();
}

std::string DescribeWidgets(const std::string& name)
{
    std::string text;
    const auto widgets = Find(name).findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_"))
            text += Line(*widget, QString(widget->isVisible() ? "visible" : "hidden") + '\t' +
                                      (widget->isEnabled() ? "enabled" : "disabled"));
    }
    return text;
}

std::string PropertyOf(const QObject& object, const std::string& name)
{
    const QVariant value = object.property(name.c_str());
    if (!value.isValid())
        Refuse(object.objectName().toStdString() + " has no property " + name);
    return value.toString().toStdString();
}

std::string TextOf(const QWidget& widget)
{
    for (const char* name : {"text", "plainText", "currentText", "title", "windowTitle"}) {
        const QVariant value = widget.property(name);
        if (value.isValid())
            return value.toString().toStdString();
    }
    return {};
}

QWindow& ActiveWindow()
{
    QWidget* widget = QApplication::activePopupWidget();
    if (!widget)
        widget = QApplication::activeModalWidget();
    if (!widget)
        widget = QApplication::activeWindow();
    if (!widget) {
        const auto windows = QApplication::topLevelWidgets();
        const auto visible = std::find_if(windows.begin(), windows.end(), [](auto* w) { return w->isVisible(); });
        if (visible != windows.end())
            widget = *visible;
    }
    if (!widget || !widget->windowHandle())
        Refuse("there is no window to type into");
    if (!QApplication::activePopupWidget() && !widget->isActiveWindow())
        widget->windowHandle()->requestActivate(); // no window manager gives the focus
    return *widget->windowHandle();
}

void ClickAt(QWidget& widget, QPoint position, const std::string& how = {})
{
    QWidget* window = widget.window();
    const QPoint inWindow = widget.mapTo(window, position);
    if (how == "double") {
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, inWindow);
        QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, inWindow);
    } else {
        QTest::mouseClick(window->windowHandle(), how == "right" ? Qt::RightButton : Qt::LeftButton, {}, inWindow);
    }
}

/// The widget that shows the action as an entry: a menu or the menu bar.
QWidget* HolderOf(const QAction& action)
{
    const auto objects = action.associatedObjects();
    for (QObject* object : objects) {
        if (qobject_cast<QMenu*>(object) || qobject_cast<QMenuBar*>(object))
            return qobject_cast<QWidget*>(object);
    }
    Refuse("the entry " + action.text().toStdString() + " stands in no menu");
}

void ClickMenu(QAction& action)
{
    if (!action.isEnabled() || !action.isVisible())
        Refuse("the entry " + action.text().toStdString() + " is disabled or hidden");
    QWidget* holder = HolderOf(action);
    if (auto* bar = qobject_cast<QMenuBar*>(holder)) {
        ClickAt(*bar, bar->actionGeometry(&action).center());
        return;
    }
    auto* menu = qobject_cast<QMenu*>(holder);
    if (!menu->isVisible())
        ClickMenu(*menu->menuAction());
    if (!menu->isVisible())
        Refuse("the menu " + menu->title().toStdString() + " does not open");
    ClickAt(*menu, menu->actionGeometry(&action).center());
}

void SendKeys(const std::string& keys)
{
    const QKeySequence sequence(QString::fromStdString(keys), QKeySequence::PortableText);
    if (sequence.isEmpty() || sequence[0].key() == Qt::Key_unknown)
        Refuse("there is no key " + keys);
    for (int i = 0; i < sequence.count(); ++i)
        QTest::keyClick(&ActiveWindow(), sequence[static_cast<uint>(i)].key(),
                        sequence[static_cast<uint>(i)].keyboardModifiers());
}

void TypeText(const std::string& text)
{
    for (const char letter : text)
        QTest::keyClick(&ActiveWindow(), letter);
}

std::string Optional(const Fields& command, std::size_t index)
{
    return index < command.size() ? command[index] : std::string();
}

void SaveGrab(const Fields& command)
{
    if (!Find(command.at(1)).grab().save(QString::fromStdString(command.at(2)), "PNG"))
        Refuse("cannot write " + command.at(2));
}

using Query = std::string (*)(const Fields&);
using Input = void (*)(const Fields&);

const std::map<std::string, Query>& Queries()
{
    static const std::map<std::string, Query> queries = {
        {"windows", [](const Fields&) { return DescribeWindows(); }},
        {"widgets", [](const Fields& c) { return DescribeWidgets(c.at(1)); }},
        {"text", [](const Fields& c) { return TextOf(Find(c.at(1))); }},
        {"property", [](const Fields& c) { return PropertyOf(Find(c.at(1)), c.at(2)); }},
        {"action", [](const Fields& c) { return PropertyOf(FindAction(c.at(1)), c.at(2)); }},
        {"focus",
         [](const Fields&) {
             const QWidget* widget = QApplication::focusWidget();
             return widget ? widget->objectName().toStdString() : std::string();
         }},
        {"grab",
         [](const Fields& c) {
             SaveGrab(c);
             return std::string();
         }},
    };
    return queries;
}

const std::map<std::string, Input>& Inputs()
{
    static const std::map<std::string, Input> inputs = {
        {"click",
         [](const Fields& c) {
             QWidget& widget = FindVisible(c.at(1));
             ClickAt(widget, widget.rect().center(), Optional(c, 2));
         }},
        {"menu", [](const Fields& c) { ClickMenu(FindAction(c.at(1))); }},
        {"key", [](const Fields& c) { SendKeys(c.at(1)); }},
        {"type", [](const Fields& c) { TypeText(c.at(1)); }},
        {"close", [](const Fields& c) { FindVisible(c.at(1)).window()->windowHandle()->close(); }},
    };
    return inputs;
}

}

std::string RunCommand(const Fields& command)
{
    if (const auto query = Queries().find(command.at(0)); query != Queries().end())
        return query->second(command);
    const auto input = Inputs().find(command.at(0));
    if (input == Inputs().end())
        Refuse("there is no command " + command.at(0));
    input->second(command);
    return {};
}

bool IsInput(const Fields& command) { return Inputs().contains(command.at(0)); }

bool ConditionHolds(const Fields& command)
{
    const std::string& what = command.at(1);
    const QWidget* widget = TryFind(command.at(2));
    if (what == "hidden")
        return !widget || !widget->isVisible();
    if (!widget || !widget->isVisible())
        return false;
    if (what == "text")
        return TextOf(*widget).find(command.at(3)) != std::string::npos;
    if (what == "property")
        return widget->property(command.at(3).c_str()).toString().toStdString() == command.at(4);
    return true;
}

std::string DescribeWindows()
{
    std::string text;
    const auto windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows) {
        if (window->isVisible())
            text += Line(*window, window->windowTitle());
    }
    return text;
}

}

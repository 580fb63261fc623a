#include "support/driver/RandomInput.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QWidget>

#include <iostream>
#include <iterator>
#include <random>

namespace tarvex::driver {

namespace {

using Random = std::mt19937;

/// A number from 0 to count - 1.
int Below(Random& random, qsizetype count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

template <class Items> auto AnyOf(Random& random, const Items& items)
{
    return *std::next(std::begin(items), Below(random, std::ssize(items)));
}

void Tell(const QString& what) { std::cerr << what.toStdString() << '\n'; }

void Press(Random& random, QWidget& window)
{
    static constexpr int kKeys[] = {
        Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Escape,   Qt::Key_Space,
        Qt::Key_Up,   Qt::Key_Down,    Qt::Key_Left,   Qt::Key_Right,    Qt::Key_PageUp,
        Qt::Key_Home, Qt::Key_End,     Qt::Key_Delete, Qt::Key_PageDown, Qt::Key_Backspace,
        Qt::Key_F5,   Qt::Key_F6,      Qt::Key_F1,     Qt::Key_A,        Qt::Key_F,
        Qt::Key_0,    Qt::Key_7,       Qt::Key_X,      Qt::Key_Z,        Qt::Key_Udiaeresis};
    static constexpr Qt::KeyboardModifiers kModifiers[] = {
        {}, {}, {}, {}, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    const int key = AnyOf(random, kKeys);
    // A key that closes a context menu before its second event would not do so where a real keyboard sends it.
    const bool isPopup = window.windowType() == Qt::Popup;
    const Qt::KeyboardModifiers modifiers = isPopup ? Qt::KeyboardModifiers() : AnyOf(random, kModifiers);
    Tell(QStringLiteral("key %1 %2").arg(key, 0, 16).arg(modifiers.toInt(), 0, 16));
    const QPointer<QWindow> handle = window.windowHandle();
    QTest::keyPress(handle, static_cast<Qt::Key>(key), modifiers);
    if (handle) // the key may have closed it
        QTest::keyRelease(handle, static_cast<Qt::Key>(key), modifiers);
}

void ClickOrDrag(Random& random, QWidget& window)
{
    QList<QWidget*> targets = window.findChildren<QWidget*>();
    targets.removeIf([](const QWidget* each) { return !each->isVisible() || each->isWindow(); });
    QWidget* target = targets.isEmpty() ? &window : AnyOf(random, targets);
    const auto anywhere = [&] {
        return target->mapTo(&window, QPoint(Below(random, target->width() + 1), Below(random, target->height() + 1)));
    };
    const QPoint from = anywhere();
    Tell("click " + target->objectName() + ' ' + target->metaObject()->className());
    const QPointer<QWindow> handle = window.windowHandle();
    const Qt::MouseButton button = Below(random, 8) != 0 ? Qt::LeftButton : Qt::RightButton;
    QPoint to = from;
    QTest::mousePress(handle, button, {}, from);
    if (handle && Below(random, 5) == 0)
        QTest::mouseMove(handle, to = anywhere());
    if (handle)
        QTest::mouseRelease(handle, button, {}, to);
}

void Choose(Random& random, const QWidget& window)
{
    if (QApplication::overrideCursor()) // no menu opens while transfers run
        return;
    QList<QAction*> actions = window.findChildren<QAction*>();
    actions.removeIf([](const QAction* each) {
        return each->menu() || !each->isEnabled() || !each->isVisible() || each->isSeparator() ||
               each->objectName().isEmpty();
    });
    if (actions.isEmpty())
        return;
    QAction* action = AnyOf(random, actions);
    if (action->objectName() == "Quit" && Below(random, 10) != 0)
        return;
    Tell("choose " + action->objectName());
    action->trigger();
}

void Type(Random& random, const QWidget& window)
{
    QList<QLineEdit*> fields = window.findChildren<QLineEdit*>();
    fields.removeIf([](const QLineEdit* each) { return !each->isVisible() || !each->isEnabled(); });
    if (fields.isEmpty())
        return;
    static const QString kTexts[] = {"0", "FF", "5a", "0x1A2B", "0x333", "3", "17", "-1", "99999999999", "zz", "", " "};
    const QString text = AnyOf(random, kTexts);
    QLineEdit* field = AnyOf(random, fields);
    Tell("type " + text + " into " + field->objectName());
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
    if (Below(random, 2) == 0)
        QTest::keyClick(field, Qt::Key_Return);
}

void NameFile(Random& random, QFileDialog& dialog)
{
    static const QString kNames[] = {"a.xml", "b.xml", "c", "Tarvex.xml", "gone/a.xml", "ä ö.xml", "."};
    if (Below(random, 3) == 0)
        return dialog.reject();
    const QString name = AnyOf(random, kNames);
    Tell("file " + name);
    dialog.setDirectory(QString()); // the folder in which the program was started
    auto* field = dialog.findChild<QLineEdit*>();
    field->setText(name);
    QTest::keyClick(field, Qt::Key_Return);
    if (dialog.isVisible() && !QApplication::activeModalWidget()->inherits("QMessageBox"))
        dialog.reject();
}

QWidget* AnyWindow(Random& random)
{
    if (QWidget* first = QApplication::activePopupWidget())
        return first;
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    QList<QWidget*> windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* each) { return !each->isVisible() || !each->windowHandle(); });
    return windows.isEmpty() ? nullptr : AnyOf(random, windows);
}

}

void RandomInput(const std::string& number)
{
    Random random(static_cast<unsigned>(std::stoul(number)));
    QWidget* window = AnyWindow(random);
    if (!window)
        return;
    if (auto* dialog = qobject_cast<QFileDialog*>(window))
        return NameFile(random, *dialog);
    if (!window->isActiveWindow())
        window->activateWindow();
    switch (Below(random, 8)) {
    case 0:
    case 1:
        return Choose(random, *window);
    case 2:
        return Type(random, *window);
    case 3:
    case 4:
    case 5:
        return ClickOrDrag(random, *window);
    default:
        return Press(random, *window);
    }
}

}

#include "ui/common/ModalRun.h"

#include "ui/common/Guarded.h"

#include <QApplication>

namespace tarvex {

namespace {

/// The hourglass makes way while a dialog waits for its answer.
class PlainPointer {
public:
    PlainPointer() : replaces_(QApplication::overrideCursor() != nullptr)
    {
        if (replaces_)
            QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~PlainPointer()
    {
        if (replaces_)
            QApplication::restoreOverrideCursor();
    }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

private:
    bool replaces_;
};

}

QWidget* DialogParent()
{
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

int RunModal(QDialog& dialog)
{
    const PlainPointer pointer;
    return ThroughQt([&dialog] { return dialog.exec(); });
}

}

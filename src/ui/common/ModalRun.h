#pragma once

#include <QDialog>
#include <QPointer>

namespace tarvex {

/// The window that a dialog belongs over: the one that is being answered or worked in; none before there is one.
QWidget* DialogParent();

/// Shows a dialog until it is answered, with the ordinary pointer also while work is under way. The dialog's result;
/// Rejected when it was destroyed meanwhile. A request to end the program made meanwhile is carried on.
int RunModal(QDialog& dialog);

/// Owns a dialog that has a parent. When the parent dies while the dialog is shown, the dialog is gone with it, and
/// nothing is deleted twice.
template <class Dialog> class OwnedDialog {
public:
    template <class... Args>
    explicit OwnedDialog(const char* objectName, Args&&... args) : dialog_(new Dialog(std::forward<Args>(args)...))
    {
        dialog_->setObjectName(QLatin1String(objectName));
    }
    ~OwnedDialog() { delete dialog_.data(); }
    OwnedDialog(const OwnedDialog&) = delete;
    OwnedDialog& operator=(const OwnedDialog&) = delete;

    Dialog* operator->() const { return dialog_.data(); }
    Dialog& operator*() const { return *dialog_; }
    bool IsAlive() const { return !dialog_.isNull(); }

private:
    QPointer<Dialog> dialog_;
};

}

#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace tarvex {

/// An application event filter that swallows all user input, so that nothing typed or clicked during a transfer is
/// delivered later. It remembers that Escape was pressed and which window was asked to close from outside. A modal
/// window that is opened while the gate is closed gets its input: it has to be answered before work can go on.
class InputGate : public QObject {
public:
    /// Lets a modal window have its input also when it was there before the gate closed: it cancels the work that runs.
    static void LetThrough(QWidget& modalWindow);

    /// Forgets what was remembered and begins to swallow.
    void Close();
    /// Lets input pass again; asks the window that was to be closed meanwhile to close, from the event loop.
    void Open() noexcept;
    bool EscapePressed() const { return escapePressed_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool AnswerIsAwaited() const;
    bool KeepBackClose(QObject* watched, QEvent* event);
    void HearKey(QEvent* event);

    bool escapePressed_ = false;
    QPointer<QWidget> modalBefore_;
    QPointer<QWidget> askedToClose_;
};

}

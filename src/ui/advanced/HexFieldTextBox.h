#pragma once

#include <QLineEdit>

#include <functional>
#include <string>

class QMenu;

namespace tarvex {

/// The text box of a hex field: asks a judge about the text that each edit would leave, selects its text when it gets
/// the focus, and opens the field's menu instead of its own.
class HexFieldTextBox : public QLineEdit {
public:
    using Judge = std::function<bool(const std::string&)>;
    HexFieldTextBox(Judge judge, QWidget* parent);

    void SetMenu(QMenu* menu) { menu_ = menu; }
    bool Accepts(const QString& text) const;
    /// Gets the focus and the key, as if it had been typed.
    void SendKey(Qt::Key key, Qt::KeyboardModifiers modifiers);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    bool IsRefused(const QKeyEvent& event) const;

    Judge judge_;
    QMenu* menu_ = nullptr;
    bool focusedByMouse_ = false;
};

}

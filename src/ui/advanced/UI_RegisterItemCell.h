#pragma once

#include "ui/advanced/UI_RegisterItemRules.h"

#include <QLineEdit>

#include <cstdint>
#include <string>

namespace tarvex {

class UI_RegisterItem;

/// One bit of a row: a text box of one digit. A click or Space toggles it, 0 and 1 set it, nothing else changes it; the
/// row works out what follows. Keys that it has no use for go on to the row.
class UI_RegisterItemCell : public QLineEdit {
public:
    UI_RegisterItemCell(std::int16_t bit, UI_RegisterItem& row);

    /// '0', '1' or, for a bit that is not shown, a blank.
    void Show(char digit);
    /// The first character; a blank when there is none.
    char Digit() const;
    void Look(const BitLook& look);
    bool Locked() const { return isReadOnly(); }
    void Prompt(const std::string& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent*) override {} // no selection by dragging
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void ShowTip();
    void TypeDigit(QChar digit);

    UI_RegisterItem& row_;
    std::int16_t bit_;
    BitLook look_{};
    std::string prompt_;
    bool pressed_ = false;
    bool showing_ = false;
};

}

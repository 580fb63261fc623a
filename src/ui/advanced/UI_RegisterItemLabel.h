#pragma once

#include <QLabel>

namespace tarvex {

/// What the star behind a register's name means.
inline constexpr const char* kChanged = "Changed, and not loaded into the board";

/// A caption of a row: a text that is too long for its column ends in dots and stands whole above its tool tip.
class UI_RegisterItemLabel : public QLabel {
public:
    explicit UI_RegisterItemLabel(QWidget* parent);

    /// Shows the text in bold and with a star, or plain again; false when it is shown so already.
    bool Mark(bool marked);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString ShownText() const;
    QFont ShownFont() const;

    bool marked_ = false;
};

}

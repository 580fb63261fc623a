#pragma once

#include <QLabel>

namespace tarvex {

/// A caption of a row: a text that is too long for its column ends in dots and stands whole above its tool tip.
class UI_RegisterItemLabel : public QLabel {
public:
    explicit UI_RegisterItemLabel(QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString ShownText() const;
};

}

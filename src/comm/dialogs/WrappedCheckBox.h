#pragma once

#include <QCheckBox>

namespace tarvex {

/// A check box whose caption goes on in further lines where the window is too narrow for it.
class WrappedCheckBox : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

private:
    QRect CaptionRect(const QRect& box) const;
    int LineHeight() const { return QCheckBox::sizeHint().height(); }
};

}

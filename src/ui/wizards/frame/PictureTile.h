#pragma once

#include <QPixmap>
#include <QWidget>

namespace tarvex {

/// A picture at a fixed side length, scaled for the screen that it is on. A picture that cannot be read leaves the tile
/// empty.
class PictureTile : public QWidget {
public:
    PictureTile(QSize size, QWidget* parent);

    void Show(const QString& path);
    QString Path() const { return path_; }
    QSize sizeHint() const override { return size_; }
    QSize minimumSizeHint() const override { return size_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize size_;
    QString path_;
    QPixmap picture_;
};

}

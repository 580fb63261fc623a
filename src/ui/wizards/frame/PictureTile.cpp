#include "ui/wizards/frame/PictureTile.h"

#include <QPainter>

namespace tarvex {

PictureTile::PictureTile(QSize size, QWidget* parent) : QWidget(parent), size_(size)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PictureTile::Show(const QString& path)
{
    if (path == path_)
        return;
    path_ = path;
    picture_ = QPixmap(path);
    update();
}

void PictureTile::paintEvent(QPaintEvent*)
{
    if (picture_.isNull())
        return;
    QPainter painter(this);
    const qreal scale = devicePixelRatioF();
    QPixmap shown = picture_.scaled(size() * scale, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    shown.setDevicePixelRatio(scale);
    const QSizeF extent = shown.deviceIndependentSize();
    painter.drawPixmap(QPointF((width() - extent.width()) / 2, (height() - extent.height()) / 2), shown);
}

}

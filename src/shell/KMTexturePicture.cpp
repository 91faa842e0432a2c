#include "shell/KMTexturePicture.h"

#include "core/KMTextureNode.h"

#include <QPainter>

namespace {

void paintMissing(QPainter &painter, const QRect &room)
{
    painter.setPen(QPen(QColor(200, 60, 60), qMax(1, room.width() / 28)));
    const QRect frame = room.adjusted(1, 1, -2, -2);
    painter.drawRect(frame);
    painter.drawLine(frame.topLeft(), frame.bottomRight());
    painter.drawLine(frame.topRight(), frame.bottomLeft());
}

} // namespace

QPixmap texturePicture(const KMTextureNode *texture, const QSize &size)
{
    QPixmap result(size);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    const QImage image = texture->image();
    if (image.isNull()) {
        paintMissing(painter, result.rect());
        return result;
    }
    const QImage fitted = image.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QRect place(QPoint(0, 0), fitted.size());
    place.moveCenter(result.rect().center());
    if (fitted.hasAlphaChannel()) {
        painter.fillRect(place, Qt::white);
        painter.fillRect(place, QBrush(Qt::lightGray, Qt::Dense4Pattern));
    }
    painter.drawImage(place.topLeft(), fitted);
    return result;
}

#include "core/KMSvgPicture.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

QByteArray KMSvgPicture::read(const QString &name)
{
    QFile file(QStringLiteral(":/svg/Resources/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage KMSvgPicture::draw(const QByteArray &drawing, const QSize &size, const QColor &ink)
{
    QByteArray inked = drawing;
    inked.replace("currentColor", ink.name(QColor::HexRgb).toLatin1());
    QSvgRenderer renderer(inked);
    QImage result(size, QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    const QSizeF fitted = QSizeF(renderer.defaultSize()).scaled(size, Qt::KeepAspectRatio);
    const QPointF corner((size.width() - fitted.width()) / 2, (size.height() - fitted.height()) / 2);
    painter.setOpacity(ink.alphaF());
    renderer.render(&painter, QRectF(corner, fitted));
    return result;
}

#include "core/KMWallpaper.h"

#include <QApplication>
#include <QFileInfo>
#include <QGraphicsBlurEffect>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QPainter>

namespace {

constexpr QSize WallpaperSize(1280, 720);
constexpr double BlurRadius = 16.0;

QPixmap blurred(const QImage &image)
{
    QGraphicsScene scene;
    QGraphicsPixmapItem *item = scene.addPixmap(QPixmap::fromImage(image));
    auto *blur = new QGraphicsBlurEffect; // the item takes it over
    blur->setBlurRadius(BlurRadius);
    item->setGraphicsEffect(blur);

    QPixmap result = QPixmap::fromImage(image); // the blur fades out at the border; the sharp picture fills in there
    QPainter painter(&result);
    scene.render(&painter, image.rect(), image.rect());
    return result;
}

} // namespace

QPixmap blurredWallpaper(const QString &file)
{
    if (file.isEmpty() || !QFileInfo::exists(file) || !qobject_cast<QApplication *>(QCoreApplication::instance()))
        return {};
    const QImage image(file);
    if (image.isNull())
        return {};
    return blurred(image.scaled(WallpaperSize, Qt::IgnoreAspectRatio, Qt::FastTransformation));
}

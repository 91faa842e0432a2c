#include "shell/KMImageFiles.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImageReader>
#include <QStringList>

QString KMImageFiles::openFilter()
{
    QStringList patterns;
    for (const QByteArray &suffix : QImageReader::supportedImageFormats())
        patterns << QStringLiteral("*.") + QString::fromLatin1(suffix);
    return QCoreApplication::translate("KMImageFiles", "Images (%1)").arg(patterns.join(QLatin1Char(' ')));
}

QString KMImageFiles::saveFilter()
{
    return QCoreApplication::translate("KMImageFiles", "PNG Image (*.png);;JPEG Image (*.jpg);;BMP Image (*.bmp)");
}

bool KMImageFiles::isImage(const QString &path)
{
    return QImageReader::supportedImageFormats().contains(QFileInfo(path).suffix().toLower().toLatin1());
}

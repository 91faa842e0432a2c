#include "KMSampleTextures.h"

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

namespace {

QImage blank(int width, int height, const QColor &color)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

/// Blush on the cheeks, a hint of colour on nose and lips. The picture is the front view of the
/// head, its left half used for both sides' places.
QImage skin()
{
    QImage image = blank(512, 896, QColor(255, 233, 217));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto place = [&image](qreal x, qreal y) {
        return QPointF((x + 12.0) / 24.0 * image.width(), (192.0 - y) / 42.0 * image.height());
    };
    const qreal unit = image.width() / 24.0;
    for (const qreal side : {-1.0, 1.0}) {
        const QPointF cheek = place(side * 5.4, 168.9);
        QRadialGradient blush(cheek, 2.3 * unit);
        blush.setColorAt(0.0, QColor(255, 140, 130, 110));
        blush.setColorAt(1.0, QColor(255, 160, 140, 0));
        painter.fillRect(QRectF(cheek - QPointF(3, 3) * unit, QSizeF(6, 6) * unit), blush);
    }
    QRadialGradient lip(place(0.0, 165.9), 1.1 * unit);
    lip.setColorAt(0.0, QColor(236, 120, 120, 90));
    lip.setColorAt(1.0, QColor(236, 120, 120, 0));
    painter.fillRect(QRectF(place(-1.2, 167.0), QSizeF(2.4, 2.2) * unit), lip);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(232, 150, 130, 150));
    painter.drawEllipse(place(0.0, 168.35), 0.34 * unit, 0.13 * unit);
    return image;
}

QImage iris()
{
    QImage image = blank(256, 256, QColor(30, 52, 66));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QLinearGradient colour(0.0, 16.0, 0.0, 240.0);
    colour.setColorAt(0.0, QColor(20, 60, 84));
    colour.setColorAt(0.45, QColor(34, 128, 146));
    colour.setColorAt(1.0, QColor(134, 232, 214));
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(14, 14, 228, 228));
    QRadialGradient glow(QPointF(128, 206), 80.0);
    glow.setColorAt(0.0, QColor(220, 255, 240, 190));
    glow.setColorAt(1.0, QColor(220, 255, 240, 0));
    painter.setBrush(glow);
    painter.drawEllipse(QRectF(28, 100, 200, 136));
    painter.setBrush(QColor(12, 34, 48));
    painter.drawEllipse(QPointF(128, 124), 44, 54);
    painter.setBrush(QColor(8, 26, 40, 120));
    painter.drawEllipse(QRectF(14, -60, 228, 130));
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(90, 74), 34, 38);
    painter.setBrush(QColor(255, 255, 255, 210));
    painter.drawEllipse(QPointF(168, 182), 18, 18);
    return image;
}

/// The white of an eye, in the shadow of the upper lid.
QImage white()
{
    QImage image = blank(32, 64, Qt::white);
    QPainter painter(&image);
    QLinearGradient shade(0.0, 0.0, 0.0, image.height());
    shade.setColorAt(0.0, QColor(168, 160, 196));
    shade.setColorAt(0.25, QColor(186, 180, 208));
    shade.setColorAt(0.45, QColor(244, 242, 248));
    shade.setColorAt(1.0, QColor(252, 252, 254));
    painter.fillRect(image.rect(), shade);
    return image;
}

/// Cloth with two stripes above the hem, which lies at the lower end.
QImage jacket()
{
    QImage image = blank(32, 512, QColor(53, 72, 111));
    QPainter painter(&image);
    painter.fillRect(0, 452, 32, 5, QColor(240, 238, 246));
    painter.fillRect(0, 441, 32, 3, QColor(240, 238, 246));
    return image;
}

/// From the root at the top to the tip, with a band of shine.
QImage hair()
{
    QImage image = blank(128, 512, QColor(196, 124, 92));
    QPainter painter(&image);
    QLinearGradient colour(0.0, 0.0, 0.0, image.height());
    colour.setColorAt(0.0, QColor(176, 104, 80));
    colour.setColorAt(0.35, QColor(206, 132, 98));
    colour.setColorAt(0.75, QColor(214, 144, 108));
    colour.setColorAt(1.0, QColor(232, 170, 128));
    painter.fillRect(image.rect(), colour);
    for (int x = 0; x < image.width(); x += 2) {
        const int jag = (x * 37 % 23) + (x * 11 % 17);
        QLinearGradient shine(0.0, 108.0 - jag, 0.0, 168.0 + jag);
        shine.setColorAt(0.0, QColor(255, 224, 190, 0));
        shine.setColorAt(0.5, QColor(255, 226, 196, 130));
        shine.setColorAt(1.0, QColor(255, 224, 190, 0));
        painter.fillRect(QRectF(x, 80.0, 2.0, 140.0), shine);
    }
    return image;
}

QImage plaid()
{
    QImage image = blank(128, 256, QColor(64, 78, 112));
    QPainter painter(&image);
    for (const int x : {0, 64})
        painter.fillRect(x + 12, 0, 22, 256, QColor(44, 54, 86));
    for (const int y : {20, 84, 148, 212})
        painter.fillRect(0, y, 128, 22, QColor(36, 46, 78, 150));
    painter.setPen(QPen(QColor(214, 208, 226, 190), 2.0));
    for (const int x : {46, 110})
        painter.drawLine(x, 0, x, 256);
    for (const int y : {62, 126, 190})
        painter.drawLine(0, y, 128, y);
    painter.fillRect(0, 236, 128, 8, QColor(232, 228, 238));
    return image;
}

/// Light above, shadow below, with a soft edge between.
QImage toon(const QColor &shadow)
{
    QImage image = blank(32, 64, Qt::white);
    QPainter painter(&image);
    QLinearGradient shade(0.0, 0.0, 0.0, image.height());
    shade.setColorAt(0.0, Qt::white);
    shade.setColorAt(0.5, Qt::white);
    shade.setColorAt(0.57, shadow);
    shade.setColorAt(1.0, shadow);
    painter.fillRect(image.rect(), shade);
    return image;
}

} // namespace

QString KMSampleTextures::path(int texture)
{
    constexpr const char *names[TextureCount] = {"skin",   "iris",  "white",     "hair",
                                                 "jacket", "skirt", "toon_skin", "toon_cloth"};
    return QStringLiteral("textures/%1.png").arg(QLatin1String(names[texture]));
}

QImage KMSampleTextures::draw(int texture)
{
    switch (texture) {
    case SkinPicture:
        return skin();
    case IrisPicture:
        return iris();
    case WhitePicture:
        return white();
    case HairPicture:
        return hair();
    case JacketPicture:
        return jacket();
    case SkirtPicture:
        return plaid();
    case SkinToon:
        return toon(QColor(248, 200, 188));
    case ClothToon:
        return toon(QColor(176, 172, 206));
    }
    return {};
}

bool KMSampleTextures::write(const QDir &folder)
{
    bool isWritten = folder.mkpath(QStringLiteral("textures"));
    for (int texture = 0; texture < TextureCount; ++texture)
        isWritten = draw(texture).save(folder.filePath(path(texture)), "PNG") && isWritten;
    return isWritten;
}

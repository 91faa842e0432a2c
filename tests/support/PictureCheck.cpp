#include "support/PictureCheck.h"

#include "support/TestPaths.h"

#include <QDir>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr double allowedMean = 1.0;    // of 255
constexpr double allowedShare = 0.005; // of the pixels
constexpr int allowedStep = 24;        // of a channel, before its pixel counts as another

int stepOf(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)),
                     std::abs(qAlpha(a) - qAlpha(b))});
}

QImage differenceOf(const QImage &a, const QImage &b)
{
    QImage difference(a.size(), QImage::Format_RGB32);
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const int step = std::min(255, 4 * stepOf(a.pixel(x, y), b.pixel(x, y)));
            difference.setPixel(x, y, qRgb(step, step, step));
        }
    }
    return difference;
}

double shareOfOthers(const QImage &a, const QImage &b)
{
    int others = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            others += stepOf(a.pixel(x, y), b.pixel(x, y)) > allowedStep;
    }
    return double(others) / (a.width() * a.height());
}

void leave(const QImage &picture, const QString &name)
{
    QDir().mkpath(QStringLiteral("pictures"));
    picture.save(QStringLiteral("pictures/") + name + QStringLiteral(".png"));
}

} // namespace

double meanDifference(const QImage &a, const QImage &b)
{
    double sum = 0.0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
        }
    }
    return sum / (3.0 * a.width() * a.height());
}

QString pictureFault(const QImage &picture, const QString &name)
{
    const QString path = TestPaths::sourceDir() + QStringLiteral("/tests/pictures/%1.png").arg(name);
    if (qEnvironmentVariableIsSet("KELMO_STORE_PICTURES"))
        return picture.save(path) ? QString() : QStringLiteral("%1 can't be written").arg(path);
    const QImage stored(path);
    if (stored.size() != picture.size()) {
        leave(picture, name);
        return QStringLiteral("%1 is missing or of another size").arg(path);
    }
    const double mean = meanDifference(stored, picture);
    const double share = shareOfOthers(stored, picture);
    if (mean <= allowedMean && share <= allowedShare)
        return {};
    leave(picture, name);
    leave(stored, name + QStringLiteral("_stored"));
    leave(differenceOf(stored, picture), name + QStringLiteral("_difference"));
    return QStringLiteral("%1 differs by %2 in the mean, in %3 of its pixels").arg(name).arg(mean).arg(share);
}

QImage contactSheet(const QVector<QImage> &pictures, int columns)
{
    const QSize size = pictures.first().size();
    const int rows = (pictures.size() + columns - 1) / columns;
    QImage sheet(size.width() * columns, size.height() * rows, QImage::Format_ARGB32);
    sheet.fill(Qt::transparent);
    QPainter painter(&sheet);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (int i = 0; i < pictures.size(); ++i)
        painter.drawImage(i % columns * size.width(), i / columns * size.height(), pictures.at(i));
    return sheet;
}

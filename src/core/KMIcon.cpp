#include "core/KMIcon.h"

#include "core/KMSvgPicture.h"

#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>

namespace {

QColor inkFor(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::WindowText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    case QIcon::Normal:
    case QIcon::Active:
        break;
    }
    return palette.color(QPalette::Active, QPalette::WindowText);
}

class SvgIconEngine : public QIconEngine
{
public:
    SvgIconEngine(const QString &name, const QByteArray &drawing)
        : m_name(name)
        , m_drawing(drawing)
    {
    }

    QIconEngine *clone() const override { return new SvgIconEngine(*this); }
    QString key() const override { return QStringLiteral("KMIcon"); }

    /// The size is in pixels of the device: QIcon has multiplied it by the ratio of the window by then.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        const QColor ink = inkFor(mode);
        const QString key = QStringLiteral("KMIcon/%1/%2x%3/%4")
                                .arg(m_name)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(ink.rgba(), 8, 16);
        QPixmap result;
        if (!QPixmapCache::find(key, &result)) {
            result = QPixmap::fromImage(KMSvgPicture::draw(m_drawing, size, ink));
            QPixmapCache::insert(key, result);
        }
        return result;
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        QPixmap picture = pixmap(rect.size() * ratio, mode, state);
        picture.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect, picture);
    }

private:
    QString m_name;
    QByteArray m_drawing;
};

QIcon read(const QString &name)
{
    const QByteArray drawing = KMSvgPicture::read(name);
    return drawing.isEmpty() ? QIcon() : QIcon(new SvgIconEngine(name, drawing)); // the icon takes the engine
}

} // namespace

QIcon KMIcon::icon(const QString &name)
{
    static QHash<QString, QIcon> icons;
    const auto found = icons.constFind(name);
    if (found != icons.constEnd())
        return *found;
    const QIcon icon = read(name);
    if (!icon.isNull())
        icons.insert(name, icon);
    return icon;
}

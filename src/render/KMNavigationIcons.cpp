#include "render/KMNavigationIcons.h"

#include "core/KMDpi.h"
#include "core/KMSvgPicture.h"
#include "render/KMCameraNode.h"
#include "render/KMHUDPicture.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace {

constexpr int hudIconSize = 18;
constexpr int opacity = 192;
constexpr int fineness = 4;   // pixels of the picture for one of the icon
constexpr double pitch = 1.5; // icons from left edge to left edge, in sizes

constexpr const char *pictures[] = {"fourarrows3", "magnifier12", "circle"};

int count(const KMCameraNode &camera)
{
    return camera.isPerspectiveKind() ? 3 : 2;
}

double size()
{
    return dpiScaled(hudIconSize);
}

/// Views may have any background, so each drawing has a rim in the colour that its ink is meant to stand on.
QImage picture(const char *name, const QColor &ink, const QColor &rim)
{
    const int side = int(size()) * fineness;
    const QSize room(side - 2 * fineness, side - 2 * fineness);
    const QByteArray drawing = KMSvgPicture::read(QLatin1String(name));
    const QImage below = KMSvgPicture::draw(drawing, room, rim);
    QImage result(side, side, QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    for (int dx = 0; dx <= 2; ++dx) {
        for (int dy = 0; dy <= 2; ++dy)
            painter.drawImage(dx * fineness, dy * fineness, below);
    }
    painter.drawImage(fineness, fineness, KMSvgPicture::draw(drawing, room, ink));
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(result.rect(), QColor(0, 0, 0, opacity));
    return result;
}

} // namespace

struct KMNavigationIcons::Pictures
{
    explicit Pictures(const QPalette &palette)
        : colors(palette)
    {
        const QColor rim = palette.color(QPalette::Active, QPalette::Window);
        for (size_t i = 0; i < std::size(pictures); ++i) {
            normal[i] = make(pictures[i], palette.color(QPalette::Active, QPalette::WindowText), rim);
            hot[i] = make(pictures[i], palette.color(QPalette::Active, QPalette::BrightText), rim);
        }
    }
    static std::unique_ptr<KMHUDPicture> make(const char *name, const QColor &ink, const QColor &rim)
    {
        return std::make_unique<KMHUDPicture>(picture(name, ink, rim));
    }

    QPalette colors;
    std::array<std::unique_ptr<KMHUDPicture>, std::size(pictures)> normal, hot;
};

KMNavigationIcons::KMNavigationIcons()
    : m_pictures(sharedPictures())
{
}

/// Those of the views that are there already, unless the theme is another since.
std::shared_ptr<KMNavigationIcons::Pictures> KMNavigationIcons::sharedPictures()
{
    static std::weak_ptr<Pictures> present;
    const QPalette palette = QGuiApplication::palette();
    std::shared_ptr<Pictures> found = present.lock();
    if (!found || found->colors != palette) {
        found = std::make_shared<Pictures>(palette);
        present = found;
    }
    return found;
}

int KMNavigationIcons::bottom()
{
    return int(1.5 * size());
}

QRectF KMNavigationIcons::place(const KMCameraNode &camera, int index)
{
    const double step = pitch * size();
    return {camera.width() - count(camera) * step + index * step, 0.5 * size(), size(), size()};
}

int KMNavigationIcons::codeAt(const KMCameraNode &camera, const QPointF &position)
{
    for (int i = 0; i < count(camera); ++i) {
        if (place(camera, i).contains(position))
            return 1 << i;
    }
    return NoIcon;
}

void KMNavigationIcons::draw(KMRenderer &renderer, const KMCameraNode &camera, int hotCode)
{
    for (int i = 0; i < count(camera); ++i) {
        const bool isHot = hotCode > 0 && (hotCode & (1 << i));
        const std::unique_ptr<KMHUDPicture> &picture = (isHot ? m_pictures->hot : m_pictures->normal)[size_t(i)];
        m_quads[size_t(i)].draw(renderer, camera, place(camera, i), *picture);
    }
}

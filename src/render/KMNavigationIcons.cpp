#include "render/KMNavigationIcons.h"

#include "core/KMDpi.h"
#include "core/KMSvgPicture.h"
#include "render/KMCameraNode.h"

#include <QGuiApplication>
#include <QPalette>

namespace {

constexpr int hudIconSize = 18;
constexpr int ink = 192;      // opacity of the drawings
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

QImage picture(int index, QPalette::ColorRole role)
{
    QColor color = QGuiApplication::palette().color(QPalette::Active, role);
    color.setAlpha(ink);
    const int side = int(size()) * fineness;
    return KMSvgPicture::draw(KMSvgPicture::read(QLatin1String(pictures[index])), {side, side}, color);
}

} // namespace

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
        Icon &icon = m_icons[size_t(i)];
        KMHUDQuad &quad = isHot ? icon.hot : icon.normal;
        if (!quad.hasPicture())
            quad.setPicture(picture(i, isHot ? QPalette::BrightText : QPalette::WindowText));
        quad.draw(renderer, camera, place(camera, i));
    }
}

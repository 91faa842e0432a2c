#include "render/KMHUDIcon.h"

#include "core/KMDpi.h"
#include "core/KMSvgPicture.h"
#include "render/KMHUDPicture.h"

#include <QAction>
#include <QGuiApplication>
#include <QLineF>
#include <QPainter>
#include <QPalette>

namespace {

constexpr int iconSize = 32;
constexpr int fineness = 4;      // pixels of the picture for one of the icon
constexpr double penWidth = 4.0; // of the picture
constexpr double inset = 0.22;   // of the drawing in its plate, by the side

} // namespace

KMHUDIcon::KMHUDIcon(const QString &drawing, int toolId, int mode, QObject *parent)
    : QObject(parent)
    , m_drawing(drawing)
    , m_toolId(toolId)
    , m_mode(mode)
    , m_action(new QAction(this))
{
    m_action->setCheckable(true);
    connect(m_action, &QAction::toggled, this, &KMHUDIcon::onToggled);
}

KMHUDIcon::~KMHUDIcon() = default;

int KMHUDIcon::size()
{
    return dpiScaled(iconSize);
}

bool KMHUDIcon::contains(const QPointF &position) const
{
    return QLineF(place().center(), position).length() <= size() / 2.0;
}

void KMHUDIcon::onToggled(bool checked)
{
    m_isChecked = checked;
}

QImage KMHUDIcon::picture(bool checked) const
{
    const QPalette palette = QGuiApplication::palette();
    const int side = size() * fineness;
    QImage result(side, side, QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(palette.color(QPalette::Window));
    painter.setPen(QPen(palette.color(checked ? QPalette::BrightText : QPalette::Dark), penWidth));
    painter.drawEllipse(QRectF(result.rect()).adjusted(penWidth, penWidth, -penWidth, -penWidth));
    const int edge = int(inset * side);
    const QSize room(side - 2 * edge, side - 2 * edge);
    const QColor ink = palette.color(checked ? QPalette::BrightText : QPalette::WindowText);
    painter.drawImage(edge, edge, KMSvgPicture::draw(KMSvgPicture::read(m_drawing), room, ink));
    return result;
}

void KMHUDIcon::draw(KMRenderer &renderer, const KMCameraNode &camera)
{
    std::unique_ptr<KMHUDPicture> &shown = m_isChecked ? m_checked : m_normal;
    if (!shown)
        shown = std::make_unique<KMHUDPicture>(picture(m_isChecked));
    m_quad.draw(renderer, camera, place(), *shown);
}

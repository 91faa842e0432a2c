#include "modifiers/KMPrim3DTextNode.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPathExtruder.h"
#include "modifiers/KMPathMesher.h"

#include <QFontMetricsF>
#include <QPainterPath>

#include <cmath>

namespace {

constexpr int defaultPixelSize = 20;
constexpr float smoothAngle = 45.0f; // degrees: rounds of letters are smooth, the slants of serifs are not

QPainterPath pathOf(const KMPrim3DText &parameters)
{
    const QFontMetricsF metrics(parameters.font);
    QPainterPath path;
    double y = 0.0;
    for (const QString &line : parameters.text.split(QLatin1Char('\n'))) {
        const double width = parameters.align == KMPrim3DText::Left ? 0.0 : metrics.horizontalAdvance(line);
        path.addText(parameters.align == KMPrim3DText::Center ? -width / 2.0 : -width, y, parameters.font, line);
        y += metrics.lineSpacing();
    }
    return path;
}

} // namespace

KMPrim3DText::KMPrim3DText()
{
    font.setPixelSize(defaultPixelSize);
}

bool KMPrim3DText::isInRange() const
{
    return std::isfinite(depth) && segment >= 1 && align >= Left && align <= Right && text.size() <= MaxLength
           && font.pixelSize() >= 1 && font.pixelSize() <= MaxPixelSize;
}

qint64 KMPrim3DText::faceCount() const
{
    constexpr qint64 pointsOfLetter = 32;
    return text.size() * pointsOfLetter * (qint64(segment) + 2);
}

bool KMPrim3DText::hasSameArea(const KMPrim3DText &other) const
{
    return text == other.text && font == other.font && align == other.align;
}

bool KMPrim3DText::operator==(const KMPrim3DText &other) const
{
    return hasSameArea(other) && depth == other.depth && segment == other.segment;
}

KMPrim3DTextNode::KMPrim3DTextNode()
{
    setType(KMNodeType::Prim3DText);
    setName(tr("3DText"));
    bind(QStringLiteral("Depth"), &KMPrim3DText::depth);
    bind(QStringLiteral("Segment"), &KMPrim3DText::segment);
    mesh()->setSmoothAngle(smoothAngle);
    rebuild();
}

/// Moving the node or changing its depth doesn't cut the letters anew.
const KMPathMesh &KMPrim3DTextNode::areaOf(const KMPrim3DText &parameters)
{
    if (m_areaText.hasSameArea(parameters))
        return m_area;
    m_areaText = parameters;
    KMPathMesher mesher;
    // Strokes of a letter may overlap; what lies under both is inside.
    m_area = mesher.mesh(pathOf(parameters).toSubpathPolygons(), Qt::WindingFill);
    m_areaFailed = !mesher.error().isEmpty();
    if (m_areaFailed)
        report(tr("The text of %1 has no shape: %2").arg(name(), mesher.error()));
    return m_area;
}

bool KMPrim3DTextNode::accepts(const KMPrim3DText &parameters)
{
    if (!parameters.isInRange())
        return false;
    const KMPathMesh &area = areaOf(parameters);
    return !m_areaFailed && isWithinLimit(KMPathExtruder::faceCount(area, parameters.depth, parameters.segment));
}

void KMPrim3DTextNode::generate(const KMPrim3DText &parameters, KMPrimitiveBuilder &builder)
{
    KMPathExtruder::extrude(areaOf(parameters), parameters.depth, parameters.segment, builder);
}

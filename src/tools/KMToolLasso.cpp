#include "tools/KMToolLasso.h"

#include "core/KMSettings.h"

KMToolLasso::KMToolLasso(QObject *parent)
    : KMToolMesh(KMToolOverlay::Edges, parent)
{
    setDisplayColor(DP_SEL_FRAME);
}

void KMToolLasso::begin(const QPointF &point)
{
    m_polygon = {QVector<QPointF>{point}};
    clear();
}

void KMToolLasso::lengthen(const QPointF &point)
{
    if (m_polygon.isEmpty() || (m_polygon.last() - point).manhattanLength() < 1.0)
        return;
    m_polygon << point;
    QVector<kvm::Vector3> points;
    for (const QPointF &p : std::as_const(m_polygon))
        points << kvm::Vector3(float(p.x()), float(p.y()), 0.0f);
    setClosedLine(points);
}

#pragma once

#include "modifiers/KMPathMesh.h"

#include <QCoreApplication>
#include <QPolygonF>

/// Cuts the area inside closed polygons into triangles. Polygons may have holes, cross one another and themselves;
/// where they cross, points are added.
///
/// Input comes from fonts and files: what would take too long is refused and told by error().
class KMPathMesher
{
    Q_DECLARE_TR_FUNCTIONS(KMPathMesher)
public:
    static constexpr int MaxPoints = 200000;   ///< of all polygons
    static constexpr int MaxTangled = 20000;   ///< points of polygons that lie over one another
    static constexpr int MaxCrossings = 20000; ///< among them

    /// The polygons with Y downwards, as painters have it. The result has Y upwards; it is empty on failure.
    KMPathMesh mesh(const QList<QPolygonF> &polygons, Qt::FillRule rule);
    QString error() const { return m_error; } ///< of the last call; empty when all went well

private:
    KMPathMesh meshOfGroup(const QVector<QPolygonF> &contours, Qt::FillRule rule);

    QString m_error;
};

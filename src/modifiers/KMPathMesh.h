#pragma once

#include <QPointF>
#include <QVector>

#include <array>

/// A flat area cut into triangles, Y upwards. Triangles run counter-clockwise; every inner edge is shared by two of
/// them, so that what is used once is the outline.
struct KMPathMesh
{
    using Triangle = std::array<int, 3>;
    using Loop = QVector<int>; ///< points of one outline, the area to the left of its way

    QVector<QPointF> points; ///< each used by a triangle
    QVector<Triangle> triangles;

    bool isEmpty() const { return triangles.isEmpty(); }
    void append(const KMPathMesh &other);
    QVector<Loop> outlines() const;
};

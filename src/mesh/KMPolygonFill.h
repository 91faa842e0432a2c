#pragma once

#include "math/Vector3.h"

#include <QPointF>
#include <QVector>

#include <array>
#include <functional>

/// Fills polygons with triangles that have their corners at the corners of the polygon alone.
namespace KMPolygonFill {

using Triangle = std::array<int, 3>; ///< places in the polygon, in the direction in which it runs

/// The normal of the plane that fits a closed polygon best, counter-clockwise about it; not of unit length, zero where
/// the polygon encloses nothing.
kvm::Vector3 normalOf(const QVector<kvm::Vector3> &polygon);

/// The polygon seen against its normal, so that it runs counter-clockwise.
QVector<QPointF> flatten(const QVector<kvm::Vector3> &polygon);

/// Triangles that cover a counter-clockwise polygon, two fewer than it has corners. They don't overlap unless the
/// polygon crosses itself, and stay clear of slivers as far as its shape allows. The rule says of two places of the
/// polygon that no side may run across between them; where nothing else is left, one does all the same.
QVector<Triangle> triangulate(const QVector<QPointF> &polygon,
                              const std::function<bool(int a, int b)> &isForbidden = {});

} // namespace KMPolygonFill

#pragma once

#include "math/Vector3.h"

#include <QPointF>

/// Plane geometry in the window.
namespace KMWindowGeometry {

inline QPointF pointOf(const kvm::Vector3 &window)
{
    return {double(window.x), double(window.y)};
}

double distance(const QPointF &point, const QPointF &a, const QPointF &b); ///< from the segment between a and b
double distance(const QPointF &a, const QPointF &b, const QPointF &c, const QPointF &d); ///< between two segments

} // namespace KMWindowGeometry

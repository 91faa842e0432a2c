#include "tools/KMWindowGeometry.h"

#include <QLineF>

#include <algorithm>

double KMWindowGeometry::distance(const QPointF &point, const QPointF &a, const QPointF &b)
{
    const QPointF along = b - a;
    const double length2 = QPointF::dotProduct(along, along);
    const double t = length2 > 0.0 ? qBound(0.0, QPointF::dotProduct(point - a, along) / length2, 1.0) : 0.0;
    return QLineF(point, a + along * t).length();
}

double KMWindowGeometry::distance(const QPointF &a, const QPointF &b, const QPointF &c, const QPointF &d)
{
    QPointF crossing;
    if (QLineF(a, b).intersects(QLineF(c, d), &crossing) == QLineF::BoundedIntersection)
        return 0.0;
    return std::min({distance(a, c, d), distance(b, c, d), distance(c, a, b), distance(d, a, b)});
}

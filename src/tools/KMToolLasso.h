#pragma once

#include "tools/KMToolMesh.h"

#include <QPolygonF>

/// The line that a lasso draws, in window pixels; the way back to its start closes it.
class KMToolLasso : public KMToolMesh
{
    Q_OBJECT
public:
    explicit KMToolLasso(QObject *parent = nullptr);

    const QPolygonF &polygon() const { return m_polygon; }
    void begin(const QPointF &point);
    void lengthen(const QPointF &point); ///< a point of no way from the last one is left out

private:
    QPolygonF m_polygon;
};

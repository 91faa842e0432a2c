#pragma once

#include "tools/KMToolMesh.h"

#include <QPointF>

/// The circle of a brush, in window pixels.
class KMToolCircle : public KMToolMesh
{
    Q_OBJECT
public:
    explicit KMToolCircle(QObject *parent = nullptr);

    float radius() const { return m_radius; } ///< pixels
    void setRadius(float radius) { m_radius = radius; }
    void moveTo(const QPointF &middle);

private:
    float m_radius;
};

#pragma once

#include "modifiers/KMParametricPrimitive.h"

struct KMPrimCylinder
{
    float height = 50.0f;
    float radius = 25.0f;
    int rings = 4;    ///< rows with the centres of both caps; at least 4
    int sectors = 13; ///< columns, the first counted again where the circle closes; at least 4

    bool isInRange() const;
    qint64 faceCount() const;
    bool operator==(const KMPrimCylinder &other) const;
};

/// A cylinder along the Y axis with its centre at the origin, closed by fans of triangles.
class KMPrimCylinderNode : public KMParametricPrimitive<KMPrimCylinderNode, KMPrimCylinder>
{
    Q_OBJECT
public:
    KMPrimCylinderNode();

protected:
    void generate(const KMPrimCylinder &parameters, KMPrimitiveBuilder &builder) override;
};

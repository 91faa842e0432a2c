#pragma once

#include "modifiers/KMParametricPrimitive.h"

struct KMPrimSphere
{
    float radius = 25.0f;
    int rings = 15;   ///< rows from pole to pole, both poles included; at least 3
    int sectors = 25; ///< columns, the first counted again where the circle closes; at least 4

    bool isInRange() const;
    qint64 faceCount() const;
    bool operator==(const KMPrimSphere &other) const;
};

/// A sphere with its poles on the Y axis.
class KMPrimSphereNode : public KMParametricPrimitive<KMPrimSphereNode, KMPrimSphere>
{
    Q_OBJECT
public:
    KMPrimSphereNode();

protected:
    void generate(const KMPrimSphere &parameters, KMPrimitiveBuilder &builder) override;
};

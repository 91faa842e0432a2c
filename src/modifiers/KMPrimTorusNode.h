#pragma once

#include "modifiers/KMParametricPrimitive.h"

struct KMPrimTorus
{
    float outerRadius = 50.0f; ///< from the centre to the middle of the tube
    float radius = 15.0f;      ///< of the tube
    int outerRings = 32;       ///< sections around the Y axis; at least 3
    int torusRings = 12;       ///< corners of each section; at least 3

    bool isInRange() const;
    qint64 faceCount() const;
    bool operator==(const KMPrimTorus &other) const;
};

/// A ring around the Y axis.
class KMPrimTorusNode : public KMParametricPrimitive<KMPrimTorusNode, KMPrimTorus>
{
    Q_OBJECT
public:
    KMPrimTorusNode();

protected:
    void generate(const KMPrimTorus &parameters, KMPrimitiveBuilder &builder) override;
};

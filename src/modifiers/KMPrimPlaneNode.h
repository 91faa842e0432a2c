#pragma once

#include "modifiers/KMParametricPrimitive.h"

struct KMPrimPlane
{
    float width = 100.0f; ///< along X
    float depth = 100.0f; ///< along Z
    int uDivisions = 1;   ///< along X; at least 1
    int vDivisions = 1;   ///< along Z; at least 1

    bool isInRange() const;
    qint64 faceCount() const;
    bool operator==(const KMPrimPlane &other) const;
};

/// A divided rectangle on the ground that faces up.
class KMPrimPlaneNode : public KMParametricPrimitive<KMPrimPlaneNode, KMPrimPlane>
{
    Q_OBJECT
public:
    KMPrimPlaneNode();

protected:
    void generate(const KMPrimPlane &parameters, KMPrimitiveBuilder &builder) override;
};

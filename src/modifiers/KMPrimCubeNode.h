#pragma once

#include "modifiers/KMParametricPrimitive.h"

struct KMPrimCube
{
    float x = 50.0f; ///< whole lengths of the sides
    float y = 50.0f;
    float z = 50.0f;

    bool isInRange() const;
    qint64 faceCount() const;
    bool operator==(const KMPrimCube &other) const;
};

/// A box with its centre at the origin.
class KMPrimCubeNode : public KMParametricPrimitive<KMPrimCubeNode, KMPrimCube>
{
    Q_OBJECT
public:
    KMPrimCubeNode();

protected:
    void generate(const KMPrimCube &parameters, KMPrimitiveBuilder &builder) override;
};

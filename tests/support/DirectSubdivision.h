#pragma once

#include "math/Vector4.h"

#include <QVector>

class KMMeshNode;

/// The surface of a mesh as OpenSubdiv gives it when its own descriptor is filled by hand and each level is
/// interpolated from the one before, without stencil tables.
struct DirectSubdivision
{
    struct Face
    {
        int corners[4];
        kvm::Vector4 uvs[4];
        kvm::Vector4 colors[4];
        int parent; ///< place of the face that it lies on
    };

    DirectSubdivision(const KMMeshNode &mesh, int level, bool smoothTriangles, int interpolation);

    QVector<kvm::Vector4> positions;
    QVector<Face> faces;
};

#pragma once

#include "tools/KMToolMesh.h"

namespace kvm {
struct Matrix4;
}

/// Lines in the plane of symmetry of a mesh, in the world.
class KMToolSymmetryGrid : public KMToolMesh
{
    Q_OBJECT
public:
    explicit KMToolSymmetryGrid(QObject *parent = nullptr);

    void place(const kvm::Matrix4 &frame); ///< into the plane of y and z of a frame
};

#pragma once

#include "math/Vector3.h"

#include <QString>

class KMMeshStore;
struct KMFace;
struct KMPathMesh;

/// What the shape of a mesh is, found from its faces alone.
struct MeshProbe
{
    explicit MeshProbe(const KMMeshStore &mesh);

    int vertices = 0; ///< used by a face
    int edges = 0;
    int faces = 0;
    int openEdges = 0;   ///< sides without a neighbour that runs the other way, each counted
    double volume = 0.0; ///< positive when the faces look outwards
    double area = 0.0;

    bool isClosed() const { return openEdges == 0; }
    int euler() const { return vertices - edges + faces; } ///< 2 for each ball, 0 for each ring
};

/// The normal by the first three corners, twice as long as their area.
kvm::Vector3 rawNormal(const KMMeshStore &mesh, const KMFace &face);

double areaOf(const KMPathMesh &mesh); ///< negative where triangles run clockwise

#pragma once

class KMMeshNode;
class KMTagNormal;

/// Corner normals of a mesh, smoothed over faces whose angle is below the mesh's smooth angle.
/// Keeps its arrays from one computation to the next.
class KMSmoothNormals
{
public:
    /// Writes the normals of all corners of faces of at least three corners.
    /// tag: creases and overridden normals, null for none. force: the topology may have changed since the
    /// last call; without it only positions have.
    void compute(KMMeshNode &mesh, const KMTagNormal *tag, bool force);
};

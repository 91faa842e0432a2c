#pragma once

#include "core/KMNullNode.h"
#include "math/Vector2.h"

class KMMeshNode;

/// Writes the shape of a primitive into its mesh: local points go through the transform into the vertices, faces
/// get their UVs and the shader. What the mesh held before is gone when a builder is made.
///
/// Corners are given so that the face is seen from outside while nothing is mirrored. A transform that mirrors
/// would turn the shape inside out; then the builder reverses the corners.
class KMPrimitiveBuilder
{
    Q_DISABLE_COPY(KMPrimitiveBuilder)
public:
    KMPrimitiveBuilder(KMMeshNode &mesh, const KMTransform &transform, int shader);
    ~KMPrimitiveBuilder(); ///< marks the whole mesh as changed

    void setMirrored(bool mirrored); ///< the local points themselves are mirrored, as by a negative size
    void reserve(int vertices, int faces);
    int addVertex(const kvm::Vector3 &local);                             ///< returns its index
    void addFace(int count, const int *corners, const kvm::Vector2 *uvs); ///< 3 or 4 corners, each with its UV

private:
    KMMeshNode &m_mesh;
    KMTransform m_transform;
    int m_shader;
    bool m_transformMirrors;
    bool m_reversed;
};

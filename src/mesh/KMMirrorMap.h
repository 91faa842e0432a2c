#pragma once

#include "mesh/KMSymmetryPlane.h"

#include <array>
#include <memory>
#include <vector>

class KMMeshNode;
struct KMEdge;

/// Which vertices and faces of a mesh are mirror images of each other across the plane of the mesh's frame that
/// stands on its x axis. It holds for the mesh as it was when it was made.
class KMMirrorMap
{
public:
    /// A face and, for each corner of the face that it is the image of, its own corner there.
    struct FaceImage
    {
        int face = -1; ///< -1 when there is none
        std::array<int, 4> corners{};
    };

    /// Images lie within the tolerance, in world units, of the exact place; the nearest one counts.
    KMMirrorMap(const KMMeshNode &mesh, float tolerance);
    ~KMMirrorMap();

    const KMSymmetryPlane &plane() const { return m_plane; }
    bool isOnPlane(int vertex) const;            ///< it is its own image
    int vertexImage(int vertex) const;           ///< -1 when there is none
    const KMEdge *edgeImage(int a, int b) const; ///< the edge between the images of these ends, or null
    FaceImage faceImage(int face) const;

private:
    class VertexTree;

    const KMMeshNode &m_mesh;
    KMSymmetryPlane m_plane;
    float m_tolerance;
    std::unique_ptr<VertexTree> m_tree;
    std::vector<kvm::Vector3> m_positions; // by vertex, as they were: a drag moves those of the mesh
    mutable std::vector<int> m_images;     // by vertex, as far as they were asked for
};

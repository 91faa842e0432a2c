#pragma once

#include "mesh/KMSymmetryPlane.h"

#include <array>
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

    const KMSymmetryPlane &plane() const { return m_plane; }
    bool isOnPlane(int vertex) const;                                      ///< it is its own image
    int vertexImage(int vertex) const { return m_images[size_t(vertex)]; } ///< -1 when there is none
    const KMEdge *edgeImage(int a, int b) const; ///< the edge between the images of these ends, or null
    FaceImage faceImage(int face) const;

private:
    const KMMeshNode &m_mesh;
    KMSymmetryPlane m_plane;
    std::vector<int> m_images;
};

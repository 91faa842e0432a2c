#pragma once

#include "math/Vector3.h"
#include "mesh/KMFace.h"

#include <QList>

#include <functional>
#include <vector>

class KMMeshNode;

/// Finds the nearest point of the surface of meshes. It holds for the meshes as they were when it was made.
class KMSurfaceTree
{
public:
    struct Hit
    {
        const KMFace *face = nullptr;
        int corners[3] = {};   ///< the triangle of the face on which the point lies
        float weights[3] = {}; ///< of those corners at the point, with the sum 1
        kvm::Vector3 point;
        float distance2 = 0.0f; ///< squared distance

        bool isValid() const { return face; }
    };

    explicit KMSurfaceTree(const QList<KMMeshNode *> &meshes); ///< triangles and quads, drawn or not

    bool isEmpty() const { return m_triangles.empty(); }
    const kvm::Vector3 &low() const { return m_nodes.front().low; } ///< of the box about a surface that isn't empty
    const kvm::Vector3 &high() const { return m_nodes.front().high; }
    float boxDistance2(const kvm::Vector3 &point) const; ///< squared, 0 inside
    /// An invalid one when there is no surface. Of several that are just as near, that on the earliest face.
    Hit nearest(const kvm::Vector3 &point) const;
    /// The nearest point of each triangle that comes within the reach, in no order.
    void visitWithin(const kvm::Vector3 &point, float reach, const std::function<void(const Hit &)> &visit) const;
    static kvm::Vector3 normalAt(const Hit &hit); ///< of unit length, between the normals of the corners

private:
    struct Triangle
    {
        const KMFace *face;
        int order;     // the earlier face first
        bool isSecond; // of a quad
        kvm::Vector3 points[3];
    };
    /// A leaf has triangles, any other node two nodes: the one behind it and that at `second`.
    struct Node
    {
        kvm::Vector3 low;
        kvm::Vector3 high;
        int first;
        int count; // 0 for a node that is no leaf
        int second;
    };

    void addTriangles(const KMMeshNode &mesh);
    void build(int first, int count);
    static Hit nearestOn(const Triangle &triangle, const kvm::Vector3 &point);

    std::vector<Triangle> m_triangles;
    std::vector<Node> m_nodes;
};

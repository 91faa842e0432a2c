#pragma once

#include "math/Vector3.h"

#include <QList>
#include <QPointF>

#include <array>
#include <optional>
#include <vector>

class KMCameraNode;
class KMMeshNode;
struct KMFace;

/// The faces of meshes as a camera sees them, to ask what lies under many places of its window. It holds for camera
/// and meshes as they were when it was made; hidden faces are left out. The search goes by the place in the window, so
/// that between faces that share a side there is no gap.
class KMViewSurface
{
public:
    KMViewSurface(const KMCameraNode &camera, const QList<KMMeshNode *> &meshes);

    /// The point of the surface that is nearest to the viewer; of two at the same depth, that of the earlier face.
    std::optional<kvm::Vector3> at(const QPointF &position) const;

private:
    struct Triangle
    {
        std::array<kvm::Vector3, 3> points;
        std::array<kvm::Vector3, 3> windows;
        int order;

        double middle(int axis) const;
    };
    /// A leaf has triangles, any other node two nodes: the one behind it and that at `second`.
    struct Node
    {
        double low[2];
        double high[2];
        int first;
        int count; // 0 for a node that is no leaf
        int second;
    };
    struct Hit
    {
        double depth;
        int order = -1; // of the triangle; -1 for none
    };

    void addFaces(const KMMeshNode &mesh);
    void addFace(const KMFace &face, const std::vector<kvm::Vector3> &windows, const KMMeshNode &mesh);
    bool isAstride(const Triangle &triangle) const;
    void build(int first, int count);
    static void take(Hit &best, const Triangle &triangle, double depth);

    const KMCameraNode &m_camera;
    std::vector<Triangle> m_triangles; // those that lie wholly between the clip planes
    std::vector<Triangle> m_reaching;  // beyond one of them, where the window tells nothing
    std::vector<Node> m_nodes;
};

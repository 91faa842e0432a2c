#include "tools/KMViewSurface.h"

#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMPickRay.h"

#include <QVarLengthArray>

#include <algorithm>
#include <limits>

using kvm::Vector3;

namespace {

constexpr int leafSize = 8;
constexpr int triangleCorners[2][3] = {{0, 1, 2}, {2, 3, 0}};

bool isInView(const Vector3 &window)
{
    return window.z >= 0.0f && window.z <= 1.0f;
}

double coordinate(const Vector3 &window, int axis)
{
    return double(axis == 0 ? window.x : window.y);
}

} // namespace

double KMViewSurface::Triangle::middle(int axis) const
{
    return coordinate(windows[0], axis) + coordinate(windows[1], axis) + coordinate(windows[2], axis);
}

KMViewSurface::KMViewSurface(const KMCameraNode &camera, const QList<KMMeshNode *> &meshes)
    : m_camera(camera)
{
    for (const KMMeshNode *mesh : meshes)
        addFaces(*mesh);
    m_nodes.reserve(2 * m_triangles.size() / leafSize + 1);
    if (!m_triangles.empty())
        build(0, int(m_triangles.size()));
}

void KMViewSurface::addFaces(const KMMeshNode &mesh)
{
    std::vector<Vector3> windows(size_t(mesh.vertexCount()));
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        if (mesh.vertex(i))
            windows[size_t(i)] = m_camera.worldToWindow(mesh.position(i));
    }
    for (const KMFace *face : mesh.faces()) {
        const auto isMissing = [&mesh](int vertex) { return !mesh.vertex(vertex); };
        if (face && face->isPolygon() && !face->hasFlag(KMElementFlag::Hidden)
            && std::none_of(face->indices, face->indices + face->count, isMissing))
            addFace(*face, windows, mesh);
    }
}

void KMViewSurface::addFace(const KMFace &face, const std::vector<Vector3> &windows, const KMMeshNode &mesh)
{
    for (int t = 0; t < face.count - 2; ++t) {
        Triangle triangle;
        triangle.order = int(m_triangles.size() + m_reaching.size());
        int inView = 0;
        for (size_t i = 0; i < 3; ++i) {
            const int vertex = face.indices[triangleCorners[t][i]];
            triangle.points[i] = mesh.position(vertex);
            triangle.windows[i] = windows[size_t(vertex)];
            inView += isInView(triangle.windows[i]);
        }
        if (inView == 3)
            m_triangles.push_back(triangle);
        else if (inView > 0 || isAstride(triangle))
            m_reaching.push_back(triangle);
    }
}

/// It runs from behind the eye to beyond the far end.
bool KMViewSurface::isAstride(const Triangle &triangle) const
{
    const auto isAhead = [this](const Vector3 &point) { return dot(point - m_camera.eye(), m_camera.viewAxis()) > 0; };
    const auto ahead = std::count_if(triangle.points.begin(), triangle.points.end(), isAhead);
    return ahead > 0 && ahead < 3;
}

void KMViewSurface::build(int first, int count)
{
    const size_t own = m_nodes.size();
    constexpr double far = std::numeric_limits<double>::max();
    m_nodes.push_back({{far, far}, {-far, -far}, first, count, 0});
    Node &node = m_nodes.back();
    for (int t = first; t < first + count; ++t) {
        for (const Vector3 &window : m_triangles[size_t(t)].windows) {
            for (int k = 0; k < 2; ++k) {
                node.low[k] = std::min(node.low[k], coordinate(window, k));
                node.high[k] = std::max(node.high[k], coordinate(window, k));
            }
        }
    }
    if (count <= leafSize)
        return;

    node.count = 0;
    const int axis = node.high[0] - node.low[0] >= node.high[1] - node.low[1] ? 0 : 1;
    const auto begin = m_triangles.begin() + first;
    const int half = count / 2;
    std::nth_element(begin, begin + half, begin + count,
                     [axis](const Triangle &a, const Triangle &b) { return a.middle(axis) < b.middle(axis); });
    build(first, half);
    m_nodes[own].second = int(m_nodes.size());
    build(first + half, count - half);
}

void KMViewSurface::take(Hit &best, const Triangle &triangle, double depth)
{
    if (best.order < 0 || depth < best.depth || (depth == best.depth && triangle.order < best.order))
        best = {depth, triangle.order};
}

std::optional<Vector3> KMViewSurface::at(const QPointF &position) const
{
    const KMPickRay ray(m_camera, position);
    Hit best{0.0, -1};
    double depth = 0.0;
    for (const Triangle &triangle : m_reaching) {
        if (ray.hits(triangle.points[0], triangle.points[1], triangle.points[2], depth))
            take(best, triangle, depth);
    }
    QVarLengthArray<int, 64> open;
    if (!m_nodes.empty())
        open.append(0);
    while (!open.isEmpty()) {
        const int n = open.last();
        const Node &node = m_nodes[size_t(n)];
        open.removeLast();
        if (!(position.x() >= node.low[0] && position.x() <= node.high[0] && position.y() >= node.low[1]
              && position.y() <= node.high[1]))
            continue;
        for (int t = node.first; t < node.first + node.count; ++t) {
            const Triangle &triangle = m_triangles[size_t(t)];
            if (ray.hitsInWindow(triangle.points.data(), triangle.windows.data(), depth))
                take(best, triangle, depth);
        }
        if (node.count == 0) {
            open.append(node.second);
            open.append(n + 1);
        }
    }
    return best.order < 0 ? std::nullopt : std::optional<Vector3>(ray.pointAt(best.depth));
}

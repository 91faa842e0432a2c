#include "mesh/KMSurfaceTree.h"

#include "math/Finite.h"
#include "mesh/KMMeshNode.h"

#include <QVarLengthArray>

#include <algorithm>
#include <limits>

using kvm::Vector3;

namespace {

constexpr int LeafSize = 8;
constexpr int triangleCorners[2][3] = {{0, 1, 2}, {2, 3, 0}};

/// Squared distance of a point from a box, 0 inside.
float distance2(const Vector3 &low, const Vector3 &high, const Vector3 &point)
{
    float sum = 0.0f;
    for (int k = 0; k < 3; ++k) {
        const float outside = std::max({low[k] - point[k], point[k] - high[k], 0.0f});
        sum += outside * outside;
    }
    return sum;
}

int longestSide(const Vector3 &size)
{
    if (size.x >= size.y && size.x >= size.z)
        return 0;
    return size.y >= size.z ? 1 : 2;
}

/// Where on the side from a to b the nearest point lies: 0 at a, 1 at b.
float placeOnSide(const Vector3 &a, const Vector3 &b, const Vector3 &point)
{
    const Vector3 side = b - a;
    const float length2 = side.lengthSquared();
    return length2 > 0.0f ? std::clamp(dot(point - a, side) / length2, 0.0f, 1.0f) : 0.0f;
}

/// The weights of the corners at the foot of the point on the triangle's plane; false when that lies outside.
bool weightsInside(const Vector3 *p, const Vector3 &point, float *weights)
{
    const Vector3 normal = cross(p[1] - p[0], p[2] - p[0]);
    const float area2 = normal.lengthSquared();
    if (!(area2 > 0.0f))
        return false;
    for (int i = 0; i < 3; ++i) {
        const Vector3 &a = p[(i + 1) % 3];
        const Vector3 &b = p[(i + 2) % 3];
        weights[i] = dot(cross(b - a, point - a), normal) / area2;
        if (weights[i] < 0.0f)
            return false;
    }
    const float sum = weights[0] + weights[1] + weights[2];
    for (int i = 0; i < 3; ++i)
        weights[i] /= sum;
    return true;
}

} // namespace

KMSurfaceTree::KMSurfaceTree(const QList<KMMeshNode *> &meshes)
{
    for (const KMMeshNode *mesh : meshes)
        addTriangles(*mesh);
    m_nodes.reserve(2 * m_triangles.size() / LeafSize + 1);
    if (!m_triangles.empty())
        build(0, int(m_triangles.size()));
}

float KMSurfaceTree::boxDistance2(const Vector3 &point) const
{
    return distance2(low(), high(), point);
}

void KMSurfaceTree::addTriangles(const KMMeshNode &mesh)
{
    for (const KMFace *face : mesh.faces()) {
        if (!face || !face->isPolygon())
            continue;
        const auto isUsable = [&mesh](int i) { return mesh.vertex(i) && isFinite(mesh.position(i)); };
        if (!std::all_of(face->indices, face->indices + face->count, isUsable))
            continue;
        for (int t = 0; t < face->count - 2; ++t) {
            Triangle triangle{face, int(m_triangles.size()), t == 1, {}};
            for (int i = 0; i < 3; ++i)
                triangle.points[i] = mesh.position(face->indices[triangleCorners[t][i]]);
            m_triangles.push_back(triangle);
        }
    }
}

void KMSurfaceTree::build(int first, int count)
{
    const size_t own = m_nodes.size();
    constexpr float far = std::numeric_limits<float>::max();
    m_nodes.push_back({{far, far, far}, {-far, -far, -far}, first, count, 0});
    Node &node = m_nodes.back();
    for (int t = first; t < first + count; ++t) {
        for (const Vector3 &point : m_triangles[size_t(t)].points) {
            for (int k = 0; k < 3; ++k) {
                node.low[k] = std::min(node.low[k], point[k]);
                node.high[k] = std::max(node.high[k], point[k]);
            }
        }
    }
    if (count <= LeafSize)
        return;

    node.count = 0;
    const int axis = longestSide(node.high - node.low);
    const auto place = [axis](const Triangle &t) { return t.points[0][axis] + t.points[1][axis] + t.points[2][axis]; };
    const auto begin = m_triangles.begin() + first;
    const int half = count / 2;
    std::nth_element(begin, begin + half, begin + count,
                     [place](const Triangle &a, const Triangle &b) { return place(a) < place(b); });
    build(first, half);
    m_nodes[own].second = int(m_nodes.size());
    build(first + half, count - half);
}

KMSurfaceTree::Hit KMSurfaceTree::nearestOn(const Triangle &triangle, const Vector3 &point)
{
    const Vector3 *p = triangle.points;
    Hit hit;
    hit.face = triangle.face;
    std::copy_n(triangleCorners[triangle.isSecond], 3, hit.corners);
    if (weightsInside(p, point, hit.weights)) {
        hit.point = p[0] * hit.weights[0] + p[1] * hit.weights[1] + p[2] * hit.weights[2];
        hit.distance2 = (point - hit.point).lengthSquared();
        return hit;
    }
    hit.distance2 = std::numeric_limits<float>::infinity();
    for (int i = 0; i < 3; ++i) {
        const int j = (i + 1) % 3;
        const float t = placeOnSide(p[i], p[j], point);
        const Vector3 foot = p[i] * (1.0f - t) + p[j] * t;
        const float distance2 = (point - foot).lengthSquared();
        if (!(distance2 < hit.distance2))
            continue;
        hit.distance2 = distance2;
        hit.point = foot;
        hit.weights[i] = 1.0f - t;
        hit.weights[j] = t;
        hit.weights[(i + 2) % 3] = 0.0f;
    }
    return hit;
}

KMSurfaceTree::Hit KMSurfaceTree::nearest(const Vector3 &point) const
{
    Hit best;
    best.distance2 = std::numeric_limits<float>::infinity();
    if (isEmpty())
        return best;
    int bestOrder = 0;
    QVarLengthArray<int, 64> open{0};
    while (!open.isEmpty()) {
        const int n = open.last();
        open.removeLast();
        const Node &node = m_nodes[size_t(n)];
        if (!(distance2(node.low, node.high, point) <= best.distance2))
            continue;
        for (int t = node.first; t < node.first + node.count; ++t) {
            const Triangle &triangle = m_triangles[size_t(t)];
            const Hit hit = nearestOn(triangle, point);
            const bool isEarlier = hit.distance2 == best.distance2 && triangle.order < bestOrder;
            if (hit.distance2 < best.distance2 || isEarlier) {
                best = hit;
                bestOrder = triangle.order;
            }
        }
        if (node.count > 0)
            continue;
        int near = n + 1;
        int far = node.second;
        const auto distanceTo = [&](int i) {
            return distance2(m_nodes[size_t(i)].low, m_nodes[size_t(i)].high, point);
        };
        if (distanceTo(far) < distanceTo(near))
            std::swap(near, far);
        open.append(far);
        open.append(near);
    }
    return best;
}

void KMSurfaceTree::visitWithin(const Vector3 &point, float reach, const std::function<void(const Hit &)> &visit) const
{
    if (isEmpty())
        return;
    const float reach2 = reach * reach;
    QVarLengthArray<int, 64> open{0};
    while (!open.isEmpty()) {
        const int n = open.last();
        open.removeLast();
        const Node &node = m_nodes[size_t(n)];
        if (!(distance2(node.low, node.high, point) <= reach2))
            continue;
        for (int t = node.first; t < node.first + node.count; ++t) {
            const Hit hit = nearestOn(m_triangles[size_t(t)], point);
            if (hit.distance2 <= reach2)
                visit(hit);
        }
        if (node.count == 0) {
            open.append(node.second);
            open.append(n + 1);
        }
    }
}

Vector3 KMSurfaceTree::normalAt(const Hit &hit)
{
    Vector3 normal;
    for (int i = 0; i < 3; ++i)
        normal += hit.face->normals[hit.corners[i]] * hit.weights[i];
    return normal.normalized();
}

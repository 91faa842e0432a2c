#include "mesh/KMPolygonFill.h"

#include "mesh/KMTriangleMesh.h"

#include <algorithm>
#include <cmath>

namespace {

/// How near a triangle is to one with equal sides: 0 for a sliver, below for a clockwise one.
double shapeOf(const QPointF &a, const QPointF &b, const QPointF &c)
{
    const auto square = [](const QPointF &p) { return QPointF::dotProduct(p, p); };
    const double longest = std::max({square(b - a), square(c - b), square(a - c)});
    return longest > 0.0 ? crossOf(a, b, c) / longest : 0.0;
}

/// Takes one corner after the other off a polygon, the best triangle first.
class EarClipping
{
public:
    EarClipping(const QVector<QPointF> &polygon, const KMTriangleMesh::SideRule &isForbidden)
        : m_points(polygon)
        , m_isForbidden(isForbidden)
        , m_mesh(polygon)
        , m_shapes(polygon.size())
    {
        for (int i = 0; i < polygon.size(); ++i) {
            m_next.append(i + 1 < polygon.size() ? i + 1 : 0);
            m_previous.append(i > 0 ? i - 1 : polygon.size() - 1);
        }
        for (int i = 0; i < polygon.size(); ++i)
            measure(i);
    }

    KMTriangleMesh run()
    {
        for (int left = m_points.size(); left > 2; --left)
            clip(bestCorner());
        return m_mesh;
    }

private:
    static constexpr double Blocked = 4.0; ///< what a corner that is no ear loses of its shape; more than any has
    static constexpr double Gone = -2.0 * Blocked;
    static constexpr double Sliver = 1e-10;

    void measure(int i);
    bool isBlocked(int i) const;
    void clip(int i);
    int bestCorner() const { return int(std::max_element(m_shapes.begin(), m_shapes.end()) - m_shapes.begin()); }

    const QVector<QPointF> &m_points;
    const KMTriangleMesh::SideRule &m_isForbidden;
    KMTriangleMesh m_mesh;
    QVector<double> m_shapes; // of the triangle at each corner; Gone for those that were clipped
    QVector<int> m_next;
    QVector<int> m_previous;
};

/// The side across may not be, or another corner lies in the triangle or on its border.
bool EarClipping::isBlocked(int i) const
{
    const bool isLast = m_next.at(m_next.at(i)) == m_previous.at(i);
    if (!isLast && m_isForbidden && m_isForbidden(m_previous.at(i), m_next.at(i)))
        return true;
    const QPointF &a = m_points.at(m_previous.at(i));
    const QPointF &b = m_points.at(i);
    const QPointF &c = m_points.at(m_next.at(i));
    const double margin = -Sliver * crossOf(a, b, c);
    for (int k = m_next.at(m_next.at(i)); k != m_previous.at(i); k = m_next.at(k)) {
        const QPointF &p = m_points.at(k);
        if (p == a || p == b || p == c)
            continue;
        if (crossOf(a, b, p) >= margin && crossOf(b, c, p) >= margin && crossOf(c, a, p) >= margin)
            return true;
    }
    return false;
}

/// A polygon that crosses itself runs out of ears at times; the least bad corner goes then.
void EarClipping::measure(int i)
{
    m_shapes[i] = shapeOf(m_points.at(m_previous.at(i)), m_points.at(i), m_points.at(m_next.at(i)));
    if (m_shapes.at(i) <= Sliver || isBlocked(i))
        m_shapes[i] -= Blocked;
}

void EarClipping::clip(int i)
{
    const int before = m_previous.at(i);
    const int after = m_next.at(i);
    m_mesh.addTriangle(before, i, after);
    m_shapes[i] = Gone;
    m_next[before] = after;
    m_previous[after] = before;
    measure(before);
    measure(after);
}

/// Each turn of a side makes the smallest angle larger, so this ends; the limit is for what rounding may do. What a
/// turn makes anew stands behind the others and has its own turn.
void improve(KMTriangleMesh &mesh, const KMTriangleMesh::SideRule &isForbidden)
{
    const qint64 limit = 16 * qint64(mesh.triangles().size()) * mesh.triangles().size();
    for (int t = 0; t < mesh.triangles().size() && t < limit; ++t) {
        for (int c = 0; c < 3; ++c) {
            if (mesh.improveSide(t, c, isForbidden))
                break;
        }
    }
    mesh.compact();
}

} // namespace

kvm::Vector3 KMPolygonFill::normalOf(const QVector<kvm::Vector3> &polygon)
{
    double sum[3] = {};
    for (int i = 2; i < polygon.size(); ++i) {
        const kvm::Vector3 a = polygon.at(i - 1) - polygon.first();
        const kvm::Vector3 b = polygon.at(i) - polygon.first();
        for (int k = 0; k < 3; ++k)
            sum[k] += double(a[(k + 1) % 3]) * b[(k + 2) % 3] - double(a[(k + 2) % 3]) * b[(k + 1) % 3];
    }
    return {float(sum[0]), float(sum[1]), float(sum[2])};
}

QVector<QPointF> KMPolygonFill::flatten(const QVector<kvm::Vector3> &polygon)
{
    const kvm::Vector3 normal = normalOf(polygon).normalized();
    const int least = std::abs(normal.x) <= std::abs(normal.y) ? (std::abs(normal.x) <= std::abs(normal.z) ? 0 : 2)
                                                               : (std::abs(normal.y) <= std::abs(normal.z) ? 1 : 2);
    kvm::Vector3 axis;
    axis[least] = 1.0f;
    const kvm::Vector3 right = cross(axis, normal).normalized();
    const kvm::Vector3 up = cross(normal, right);
    QVector<QPointF> points;
    for (const kvm::Vector3 &corner : polygon) {
        const kvm::Vector3 p = corner - polygon.first();
        points.append({double(dot(p, right)), double(dot(p, up))});
    }
    return points;
}

QVector<KMPolygonFill::Triangle> KMPolygonFill::triangulate(const QVector<QPointF> &polygon,
                                                            const std::function<bool(int a, int b)> &isForbidden)
{
    if (polygon.size() < 3)
        return {};
    KMTriangleMesh mesh = EarClipping(polygon, isForbidden).run();
    improve(mesh, isForbidden);
    QVector<Triangle> triangles;
    for (const KMTriangleMesh::Triangle &triangle : mesh.triangles())
        triangles.append(triangle.corners);
    return triangles;
}

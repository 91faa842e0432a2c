#include "mesh/KMTriangleMesh.h"

#include <algorithm>

namespace {

double squaredDistance(const QPointF &a, const QPointF &b)
{
    const QPointF d = b - a;
    return QPointF::dotProduct(d, d);
}

/// Whether d lies inside the circle through the corners of a counter-clockwise triangle, clear of rounding.
bool isInCircle(const QPointF &a, const QPointF &b, const QPointF &c, const QPointF &d)
{
    const QPointF pa = a - d;
    const QPointF pb = b - d;
    const QPointF pc = c - d;
    const auto square = [](const QPointF &p) { return QPointF::dotProduct(p, p); };
    const auto area = [](const QPointF &p, const QPointF &q) { return p.x() * q.y() - p.y() * q.x(); };
    const double scale = std::max({square(pa), square(pb), square(pc)});
    return square(pa) * area(pb, pc) + square(pb) * area(pc, pa) + square(pc) * area(pa, pb) > 1e-9 * scale * scale;
}

} // namespace

double crossOf(const QPointF &a, const QPointF &b, const QPointF &c)
{
    return (b.x() - a.x()) * (c.y() - a.y()) - (b.y() - a.y()) * (c.x() - a.x());
}

int KMTriangleMesh::Triangle::cornerOf(int vertex) const
{
    const auto found = std::find(corners.begin(), corners.end(), vertex);
    return found == corners.end() ? None : int(found - corners.begin());
}

void KMTriangleMesh::link(int t)
{
    Triangle &triangle = m_triangles[t];
    for (size_t c = 0; c < 3; ++c) {
        const int a = triangle.corners[c];
        const int b = triangle.corners[(c + 1) % 3];
        m_sides.insert(sideKey(a, b), t);
        const int other = m_sides.value(sideKey(b, a), None);
        triangle.neighbours[c] = other;
        if (other != None)
            m_triangles[other].neighbours[size_t(m_triangles.at(other).cornerOf(b))] = t;
    }
}

int KMTriangleMesh::addTriangle(int a, int b, int c)
{
    m_triangles.append(Triangle{{a, b, c}, {None, None, None}});
    link(m_triangles.size() - 1);
    return m_triangles.size() - 1;
}

void KMTriangleMesh::removeTriangle(int t)
{
    Triangle &triangle = m_triangles[t];
    if (triangle.isGap())
        return;
    for (size_t c = 0; c < 3; ++c) {
        const int b = triangle.corners[(c + 1) % 3];
        m_sides.remove(sideKey(triangle.corners[c], b));
        const int other = triangle.neighbours[c];
        if (other != None)
            m_triangles[other].neighbours[size_t(m_triangles.at(other).cornerOf(b))] = None;
    }
    triangle = {{None, None, None}, {None, None, None}};
}

void KMTriangleMesh::compact()
{
    const auto isGap = [](const Triangle &triangle) { return triangle.isGap(); };
    m_triangles.erase(std::remove_if(m_triangles.begin(), m_triangles.end(), isGap), m_triangles.end());
    m_sides.clear();
    for (int t = 0; t < m_triangles.size(); ++t)
        link(t);
}

/// The corner of the neighbour that the side doesn't have.
int KMTriangleMesh::acrossOf(int t, int corner) const
{
    const Triangle &other = m_triangles.at(m_triangles.at(t).neighbours[size_t(corner)]);
    return other.corners[size_t(other.cornerOf(m_triangles.at(t).corners[size_t(corner)]) + 1) % 3];
}

bool KMTriangleMesh::improveSide(int t, int corner, const SideRule &isForbidden)
{
    const Triangle triangle = m_triangles.at(t);
    if (triangle.isGap() || triangle.neighbours[size_t(corner)] == None)
        return false;
    const int a = triangle.corners[size_t(corner)];
    const int b = triangle.corners[size_t(corner + 1) % 3];
    const int c = triangle.corners[size_t(corner + 2) % 3];
    const int d = acrossOf(t, corner);
    const QPointF &pa = m_vertices.at(a);
    const QPointF &pb = m_vertices.at(b);
    const QPointF &pc = m_vertices.at(c);
    const QPointF &pd = m_vertices.at(d);
    const double flat = 1e-9 * squaredDistance(pc, pd);
    if (m_sides.contains(sideKey(c, d)) || m_sides.contains(sideKey(d, c)) || crossOf(pc, pa, pd) <= flat
        || crossOf(pd, pb, pc) <= flat || !isInCircle(pa, pb, pc, pd) || (isForbidden && isForbidden(c, d)))
        return false;
    removeTriangle(triangle.neighbours[size_t(corner)]);
    removeTriangle(t);
    addTriangle(c, a, d);
    addTriangle(d, b, c);
    return true;
}

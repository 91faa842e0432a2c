#include "modifiers/KMPathMesher.h"

#include <QRectF>

#ifdef __APPLE__
#include <OpenGL/glu.h>
#else
#include <GL/glu.h>
#endif

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>

namespace {

constexpr double farthest = 1e7; // beyond it the coordinates of a mesh have no digits left for a shape

/// Without points that repeat the one before, and without what has no area.
QPolygonF cleaned(const QPolygonF &polygon)
{
    QPolygonF result;
    result.reserve(polygon.size());
    for (const QPointF &point : polygon) {
        if (result.isEmpty() || result.last() != point)
            result.append(point);
    }
    while (result.size() > 1 && result.first() == result.last())
        result.removeLast();
    return result.size() < 3 ? QPolygonF() : result;
}

bool isWithinReach(const QPolygonF &polygon)
{
    return std::all_of(polygon.cbegin(), polygon.cend(), [](const QPointF &point) {
        return std::abs(point.x()) <= farthest && std::abs(point.y()) <= farthest; // false for NaN
    });
}

/// Parts polygons into groups whose bounds don't meet: letters of a line can be cut one by one, which keeps the
/// number of sides that have to be compared small.
QVector<QVector<QPolygonF>> groupsOf(const QVector<QPolygonF> &polygons)
{
    const int count = polygons.size();
    QVector<QRectF> bounds;
    for (const QPolygonF &polygon : polygons)
        bounds.append(polygon.boundingRect());
    QVector<int> order(count);
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return bounds[a].left() < bounds[b].left(); });

    QVector<int> leader(count);
    std::iota(leader.begin(), leader.end(), 0);
    const auto find = [&leader](int i) {
        while (leader[i] != i)
            i = leader[i] = leader[leader[i]];
        return i;
    };
    QVector<int> open; // those that reach the place of the sweep
    for (const int i : std::as_const(order)) {
        const auto ended = [&](int other) { return bounds[other].right() < bounds[i].left(); };
        open.erase(std::remove_if(open.begin(), open.end(), ended), open.end());
        for (const int other : std::as_const(open)) {
            if (bounds[other].top() <= bounds[i].bottom() && bounds[i].top() <= bounds[other].bottom())
                leader[find(other)] = find(i);
        }
        open.append(i);
    }

    QVector<int> groupOf(count, -1);
    QVector<QVector<QPolygonF>> groups;
    for (int i = 0; i < count; ++i) {
        int &group = groupOf[find(i)];
        if (group < 0) {
            group = groups.size();
            groups.append(QVector<QPolygonF>());
        }
        groups[group].append(polygons[i]);
    }
    return groups;
}

double side(const QPointF &a, const QPointF &b, const QPointF &p)
{
    return (b.x() - a.x()) * (p.y() - a.y()) - (b.y() - a.y()) * (p.x() - a.x());
}

/// Counts sides that cross one another, and stops at the limit: the time of the tessellator grows with them.
bool hasMoreCrossings(const QVector<QPolygonF> &contours, int limit)
{
    struct Segment
    {
        QPointF a, b;
        double left, right, top, bottom;
    };
    std::vector<Segment> segments;
    for (const QPolygonF &contour : contours) {
        for (int i = 0; i < contour.size(); ++i) {
            const QPointF &a = contour[i];
            const QPointF &b = contour[i + 1 < contour.size() ? i + 1 : 0];
            segments.push_back(
                {a, b, std::min(a.x(), b.x()), std::max(a.x(), b.x()), std::min(a.y(), b.y()), std::max(a.y(), b.y())});
        }
    }
    std::sort(segments.begin(), segments.end(), [](const Segment &s, const Segment &t) { return s.left < t.left; });
    int crossings = 0;
    for (size_t i = 0; i < segments.size(); ++i) {
        const Segment &s = segments[i];
        for (size_t k = i + 1; k < segments.size() && segments[k].left <= s.right; ++k) {
            const Segment &t = segments[k];
            if (t.top > s.bottom || t.bottom < s.top)
                continue;
            if ((side(s.a, s.b, t.a) > 0.0) == (side(s.a, s.b, t.b) > 0.0)
                || (side(t.a, t.b, s.a) > 0.0) == (side(t.a, t.b, s.b) > 0.0))
                continue;
            if (++crossings > limit)
                return true;
        }
    }
    return false;
}

/// One run of the tessellator. Its callbacks get points as their numbers.
class Tessellation
{
    Q_DISABLE_COPY(Tessellation)
public:
    explicit Tessellation(Qt::FillRule rule);
    ~Tessellation() { gluDeleteTess(m_tess); }

    bool run(const QVector<QPolygonF> &contours);
    KMPathMesh result() const;

private:
    using Callback = void (*)();

    static void GLAPIENTRY onBegin(GLenum, void *) {}
    static void GLAPIENTRY onVertex(void *point, void *self);
    static void GLAPIENTRY onEnd(void *) {}
    static void GLAPIENTRY onEdgeFlag(GLboolean, void *) {} // its presence makes all output single triangles
    static void GLAPIENTRY onError(GLenum, void *self) { static_cast<Tessellation *>(self)->m_failed = true; }
    static void GLAPIENTRY onCombine(GLdouble coordinates[3], void *[4], GLfloat[4], void **point, void *self);

    void setCallback(GLenum which, Callback callback) { gluTessCallback(m_tess, which, callback); }
    void *add(const QPointF &point);

    GLUtesselator *m_tess;
    QVector<QPointF> m_points;
    QVector<int> m_corners; // three of each triangle
    bool m_failed = false;
};

Tessellation::Tessellation(Qt::FillRule rule)
    : m_tess(gluNewTess())
{
    gluTessProperty(m_tess, GLU_TESS_WINDING_RULE,
                    rule == Qt::WindingFill ? GLU_TESS_WINDING_NONZERO : GLU_TESS_WINDING_ODD);
    gluTessNormal(m_tess, 0.0, 0.0, 1.0);
    setCallback(GLU_TESS_BEGIN_DATA, reinterpret_cast<Callback>(&onBegin));
    setCallback(GLU_TESS_VERTEX_DATA, reinterpret_cast<Callback>(&onVertex));
    setCallback(GLU_TESS_END_DATA, reinterpret_cast<Callback>(&onEnd));
    setCallback(GLU_TESS_EDGE_FLAG_DATA, reinterpret_cast<Callback>(&onEdgeFlag));
    setCallback(GLU_TESS_ERROR_DATA, reinterpret_cast<Callback>(&onError));
    setCallback(GLU_TESS_COMBINE_DATA, reinterpret_cast<Callback>(&onCombine));
}

void *Tessellation::add(const QPointF &point)
{
    m_points.append(point);
    return reinterpret_cast<void *>(std::intptr_t(m_points.size() - 1));
}

void Tessellation::onVertex(void *point, void *self)
{
    static_cast<Tessellation *>(self)->m_corners.append(int(reinterpret_cast<std::intptr_t>(point)));
}

void Tessellation::onCombine(GLdouble coordinates[3], void *[4], GLfloat[4], void **point, void *self)
{
    *point = static_cast<Tessellation *>(self)->add({coordinates[0], coordinates[1]});
}

bool Tessellation::run(const QVector<QPolygonF> &contours)
{
    gluTessBeginPolygon(m_tess, this);
    for (const QPolygonF &contour : contours) {
        gluTessBeginContour(m_tess);
        for (const QPointF &point : contour) {
            GLdouble coordinates[3] = {point.x(), -point.y(), 0.0};
            gluTessVertex(m_tess, coordinates, add({coordinates[0], coordinates[1]}));
        }
        gluTessEndContour(m_tess);
    }
    gluTessEndPolygon(m_tess);
    return !m_failed;
}

KMPathMesh Tessellation::result() const
{
    KMPathMesh mesh;
    QVector<int> place(m_points.size(), -1); // points that were merged into others stay unused
    mesh.triangles.reserve(m_corners.size() / 3);
    for (int i = 0; i + 2 < m_corners.size(); i += 3) {
        const int a = m_corners[i], b = m_corners[i + 1], c = m_corners[i + 2];
        if (a == b || b == c || c == a)
            continue;
        KMPathMesh::Triangle triangle;
        for (size_t corner = 0; corner < triangle.size(); ++corner) {
            const int point = m_corners[i + int(corner)];
            if (place[point] < 0) {
                place[point] = mesh.points.size();
                mesh.points.append(m_points[point]);
            }
            triangle[corner] = place[point];
        }
        mesh.triangles.append(triangle);
    }
    return mesh;
}

} // namespace

KMPathMesh KMPathMesher::mesh(const QList<QPolygonF> &polygons, Qt::FillRule rule)
{
    m_error.clear();
    QVector<QPolygonF> contours;
    qint64 points = 0;
    for (const QPolygonF &polygon : polygons) {
        if (!isWithinReach(polygon)) {
            m_error = tr("An outline reaches too far");
            return {};
        }
        const QPolygonF contour = cleaned(polygon);
        points += contour.size();
        if (!contour.isEmpty())
            contours.append(contour);
    }
    if (points > MaxPoints) {
        m_error = tr("The outlines have %1 points; the limit is %2").arg(points).arg(MaxPoints);
        return {};
    }
    KMPathMesh whole;
    for (const QVector<QPolygonF> &group : groupsOf(contours)) {
        whole.append(meshOfGroup(group, rule));
        if (!m_error.isEmpty())
            return {};
    }
    return whole;
}

KMPathMesh KMPathMesher::meshOfGroup(const QVector<QPolygonF> &contours, Qt::FillRule rule)
{
    int points = 0;
    for (const QPolygonF &contour : contours)
        points += contour.size();
    if (points > MaxTangled)
        m_error = tr("Outlines over one another have %1 points; the limit is %2").arg(points).arg(MaxTangled);
    else if (hasMoreCrossings(contours, MaxCrossings))
        m_error = tr("Outlines cross one another more than %1 times").arg(MaxCrossings);
    if (!m_error.isEmpty())
        return {};
    Tessellation tessellation(rule);
    if (!tessellation.run(contours)) {
        m_error = tr("An outline can't be filled");
        return {};
    }
    return tessellation.result();
}

#include "mesh/KMBevelShape.h"

#include "mesh/KMCornerMotion.h"
#include "mesh/KMFaceNormal.h"
#include "mesh/KMMeshStore.h"

#include <QSet>

#include <algorithm>

using kvm::Vector3;

namespace {

int previousCorner(const KMFace &face, int corner)
{
    return corner > 0 ? corner - 1 : face.count - 1;
}

int nextCorner(const KMFace &face, int corner)
{
    return corner + 1 < face.count ? corner + 1 : 0;
}

Vector3 normalOf(const KMMeshStore &mesh, const KMFace &face)
{
    const auto at = [&](int corner) { return mesh.position(face.indices[corner]); };
    return face.count == 3 ? KMFaceNormal::ofTriangle(at(0), at(1), at(2))
                           : KMFaceNormal::ofQuad(at(0), at(1), at(2), at(3));
}

/// The triangles and quads at an edge.
QVector<int> polygonsAt(const KMMeshStore &mesh, const KMEdge *edge)
{
    QVector<int> polygons;
    for (const int f : edge ? edge->faceRefs.toList() : QList<int>()) {
        if (mesh.face(f) && mesh.face(f)->isPolygon())
            polygons << f;
    }
    return polygons;
}

/// The face across the edge from one vertex to another, with its corner at the vertex; the edge leaves that corner, or
/// arrives there. -1 where the surface ends, or faces don't agree on their outside.
QPair<int, int> neighbour(const KMMeshStore &mesh, int face, int vertex, int end, bool leaves)
{
    const QVector<int> faces = polygonsAt(mesh, mesh.findEdge(vertex, end));
    if (faces.size() != 2)
        return {-1, -1};
    const int other = faces.at(0) == face ? faces.at(1) : faces.at(0);
    const KMFace &record = *mesh.face(other);
    const int corner = record.cornerOf(vertex);
    const int across = leaves ? nextCorner(record, corner) : previousCorner(record, corner);
    return other != face && record.indices[across] == end ? qMakePair(other, corner) : qMakePair(-1, -1);
}

bool hasCornerTwice(const KMFace &face)
{
    for (int c = 0; c < face.count; ++c) {
        if (face.cornerOf(face.indices[c]) != c)
            return true;
    }
    return false;
}

/// All around a vertex no more than two faces meet at an edge.
bool isSurface(const KMMeshStore &mesh, int vertex)
{
    for (const int f : mesh.vertex(vertex)->faceRefs) {
        const KMFace &face = *mesh.face(f);
        const int corner = face.cornerOf(vertex);
        if (face.isPolygon()
            && (hasCornerTwice(face) || polygonsAt(mesh, mesh.findEdge(vertex, face.next(corner))).size() > 2
                || polygonsAt(mesh, mesh.findEdge(vertex, face.indices[previousCorner(face, corner)])).size() > 2))
            return false;
    }
    return true;
}

} // namespace

KMBevelShape::KMBevelShape(const KMMeshStore &mesh, const QVector<const KMEdge *> &edges)
{
    QVector<int> vertices;
    for (const KMEdge *edge : edges) {
        if (addStrip(mesh, *edge))
            vertices << edge->index0 << edge->index1;
    }
    std::sort(vertices.begin(), vertices.end());
    vertices.erase(std::unique(vertices.begin(), vertices.end()), vertices.end());
    for (const int vertex : std::as_const(vertices))
        openVertex(mesh, vertex);
    std::sort(m_faces.begin(), m_faces.end());
    m_faces.erase(std::unique(m_faces.begin(), m_faces.end()), m_faces.end());
}

bool KMBevelShape::addStrip(const KMMeshStore &mesh, const KMEdge &edge)
{
    const QVector<int> faces = polygonsAt(mesh, &edge);
    if (faces.size() != 2 || !isSurface(mesh, edge.index0) || !isSurface(mesh, edge.index1))
        return false;
    const auto cornerBefore = [&](int f) {
        const KMFace &face = *mesh.face(f);
        const int corner = face.cornerOf(edge.index0);
        return face.next(corner) == edge.index1 ? corner : face.cornerOf(edge.index1);
    };
    const Strip strip{faces.at(0), cornerBefore(faces.at(0)), faces.at(1), cornerBefore(faces.at(1))};
    const bool runsAlike =
        mesh.face(strip.face)->indices[strip.corner] == mesh.face(strip.otherFace)->indices[strip.otherCorner];
    if (runsAlike)
        return false;
    m_bevelled.insert(edge.key(), m_strips.size());
    m_strips << strip;
    return true;
}

/// Whether the edge is bevelled that leaves the corner.
bool KMBevelShape::isBevelled(const KMMeshStore &mesh, const FanFace &at) const
{
    const KMFace &face = *mesh.face(at.face);
    return m_bevelled.contains(KMEdge::keyOf(face.indices[at.corner], face.next(at.corner)));
}

/// A vertex where sheets of the surface merely touch has several fans; those without a bevelled edge stay.
void KMBevelShape::openVertex(const KMMeshStore &mesh, int vertex)
{
    QSet<int> seen;
    for (const int f : mesh.vertex(vertex)->faceRefs) {
        if (!mesh.face(f)->isPolygon() || seen.contains(f))
            continue;
        FanFace start{f, mesh.face(f)->cornerOf(vertex)};
        bool isClosed = false;
        for (FanFace at = start;;) {
            const KMFace &face = *mesh.face(at.face);
            const int end = face.indices[previousCorner(face, at.corner)];
            const auto before = neighbour(mesh, at.face, vertex, end, true);
            isClosed = before.first == f;
            if (before.first < 0 || isClosed)
                break;
            start = at = {before.first, before.second};
        }
        if (isClosed)
            start = {f, mesh.face(f)->cornerOf(vertex)};
        Fan fan;
        for (FanFace at = start; at.face >= 0 && !seen.contains(at.face);) {
            fan << at;
            seen.insert(at.face);
            const auto after = neighbour(mesh, at.face, vertex, mesh.face(at.face)->next(at.corner), false);
            at = {after.first, after.second};
        }
        const auto isGate = [&](const FanFace &at) { return isBevelled(mesh, at); };
        const auto gates = std::count_if(fan.begin(), fan.end(), isGate);
        if (gates == 0)
            continue;
        if (isClosed)
            std::rotate(fan.begin(), std::find_if(fan.begin(), fan.end(), isGate) + 1, fan.end());
        if (isClosed && gates == 1)
            openEnd(mesh, fan);
        else
            openSectors(mesh, fan, isClosed);
    }
}

/// The bevelled edge leaves the last face of the fan.
void KMBevelShape::openEnd(const KMMeshStore &mesh, const Fan &fan)
{
    QVector<int> points;
    for (int i = 0; i + 1 < fan.size(); ++i)
        points << addSlide(mesh, fan.at(i), mesh.face(fan.at(i).face)->next(fan.at(i).corner));
    for (int i = 0; i < fan.size(); ++i)
        setCorner(fan.at(i), points.at(std::max(i - 1, 0)), points.at(std::min(i, points.size() - 1)));
    addFill(points);
}

void KMBevelShape::openSectors(const KMMeshStore &mesh, const Fan &fan, bool isClosed)
{
    QVector<int> points;
    for (int begin = 0, end = 0; begin < fan.size(); begin = end) {
        while (end < fan.size() && !isBevelled(mesh, fan.at(end)))
            ++end;
        const bool endsAtBorder = end == fan.size();
        end = std::min(end + 1, fan.size());
        const int point = addSector(mesh, fan, begin, end, !isClosed && begin == 0, endsAtBorder);
        for (int i = begin; i < end; ++i)
            setCorner(fan.at(i), point, point);
        points << point;
    }
    addFill(points);
}

/// The point of some faces in a row. At a border it stays on it, so that the outline of the surface does. Between two
/// bevelled edges it keeps the same distance from both in a single face, else it moves along the edge in the middle.
int KMBevelShape::addSector(const KMMeshStore &mesh, const Fan &fan, int begin, int end, bool startsAtBorder,
                            bool endsAtBorder)
{
    const FanFace &first = fan.at(begin);
    const KMFace &firstFace = *mesh.face(first.face);
    if (startsAtBorder)
        return addSlide(mesh, first, firstFace.indices[previousCorner(firstFace, first.corner)]);
    if (endsAtBorder)
        return addSlide(mesh, fan.at(end - 1), mesh.face(fan.at(end - 1).face)->next(fan.at(end - 1).corner));
    const int edges = end - begin - 1;
    const FanFace &middle = fan.at(begin + edges / 2);
    if (edges % 2 == 1)
        return addSlide(mesh, middle, mesh.face(middle.face)->next(middle.corner));
    const KMFace &face = *mesh.face(middle.face);
    const Vector3 &origin = mesh.position(face.indices[middle.corner]);
    const Vector3 &before = mesh.position(face.indices[previousCorner(face, middle.corner)]);
    const Vector3 &after = mesh.position(face.next(middle.corner));
    const Vector3 normal = normalOf(mesh, face);
    const Vector3 motion = edges == 0 ? KMCornerMotion::meet(KMCornerMotion::inward(before, origin, normal),
                                                             KMCornerMotion::inward(origin, after, normal))
                                      : ((before - origin).normalized() + (after - origin).normalized()).normalized();
    m_points.append({face.indices[middle.corner], middle.face, middle.corner, -1, origin, motion});
    return m_points.size() - 1;
}

int KMBevelShape::addSlide(const KMMeshStore &mesh, const FanFace &at, int towards)
{
    const int vertex = mesh.face(at.face)->indices[at.corner];
    const Vector3 &origin = mesh.position(vertex);
    const Vector3 motion = (mesh.position(towards) - origin).normalized();
    m_points.append({vertex, at.face, at.corner, towards, origin, motion});
    return m_points.size() - 1;
}

void KMBevelShape::setCorner(const FanFace &at, int first, int last)
{
    m_corners.insert(keyOf(at.face, at.corner), {first, last});
    m_faces << at.face;
}

/// The faces around run along their points; what closes the gap between them runs the other way.
void KMBevelShape::addFill(QVector<int> points)
{
    if (points.size() < 3)
        return;
    std::reverse(points.begin(), points.end());
    m_fills << points;
}

QVector<int> KMBevelShape::stripPoints(const Strip &strip, const KMMeshStore &mesh) const
{
    const int end = nextCorner(*mesh.face(strip.face), strip.corner);
    const int otherEnd = nextCorner(*mesh.face(strip.otherFace), strip.otherCorner);
    QVector<int> ring{corner(strip.face, strip.corner).last, corner(strip.otherFace, otherEnd).first,
                      corner(strip.otherFace, strip.otherCorner).last, corner(strip.face, end).first};
    if (ring.at(2) == ring.at(3))
        ring.removeAt(3);
    if (ring.at(0) == ring.at(1))
        ring.removeAt(1);
    return ring;
}

float KMBevelShape::widthLimit(const KMMeshStore &mesh) const
{
    double limit = 1e30;
    for (const int f : m_faces) {
        const KMFace &face = *mesh.face(f);
        QVector<Vector3> origins;
        QVector<Vector3> motions;
        for (int c = 0; c < face.count; ++c) {
            const Corner at = corner(f, c);
            origins << mesh.position(face.indices[c]);
            motions << (at.first < 0 ? Vector3() : m_points.at(at.first).motion);
            if (at.first == at.last)
                continue;
            origins << origins.last();
            motions << m_points.at(at.last).motion;
        }
        limit = std::min(limit, KMCornerMotion::turnLimit(origins, motions, normalOf(mesh, face)));
    }
    return float(limit);
}

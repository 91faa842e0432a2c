#include "mesh/KMBevelEdit.h"

#include "core/KMSolution.h"
#include "core/KMVertexFollower.h"
#include "mesh/KMCornerMotion.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMPolygonTiles.h"

#include <QSet>

#include <algorithm>

using KMCornerMotion::cornerAfter;
using KMCornerMotion::cornerBefore;
using kvm::Vector3;

namespace {

/// How much of its two sides a way from a corner takes, as near as it comes in the plane of the face.
struct Shares
{
    float next = 0.0f;
    float previous = 0.0f;
};

Shares sharesOf(const Vector3 &way, const Vector3 &toNext, const Vector3 &toPrevious)
{
    const float nn = dot(toNext, toNext);
    const float pp = dot(toPrevious, toPrevious);
    const float np = dot(toNext, toPrevious);
    const float determinant = nn * pp - np * np;
    if (determinant <= 1e-12f * nn * pp)
        return {nn > 0.0f ? dot(way, toNext) / nn : 0.0f, 0.0f};
    const float n = dot(way, toNext);
    const float p = dot(way, toPrevious);
    return {(n * pp - p * np) / determinant, (p * nn - n * np) / determinant};
}

template <class Value>
Value mixed(const Value *values, int corner, int next, int previous, const Shares &shares)
{
    return values[corner] + (values[next] - values[corner]) * shares.next
           + (values[previous] - values[corner]) * shares.previous;
}

} // namespace

KMBevelEdit::KMBevelEdit(KMMeshNode &mesh, const KMBevelShape &shape, float width)
    : m_mesh(mesh)
    , m_shape(shape)
    , m_firstVertex(mesh.vertexCount())
{
    for (const KMBevelShape::Point &point : shape.points())
        m_places << point.origin + point.motion * width;
}

void KMBevelEdit::push()
{
    makeFaces();
    moveLines();
    collectWeights();
    makeVertices();
    for (const KMFace &face : std::as_const(m_faces))
        KMMeshEdit::addFace(m_mesh, face);
    for (const auto &line : std::as_const(m_lines))
        KMMeshEdit::editFace(m_mesh, line.first, line.second);
    for (const int f : m_shape.faces())
        KMMeshEdit::deleteFace(m_mesh, f);
    gSolution->push(new buildEdgeCommand(&m_mesh));
    for (const KMEdgeState &state : std::as_const(m_weights))
        KMMeshEdit::setEdgeWeight(m_mesh, state.a, state.b, state.weight);
    KMMeshEdit::compact(m_mesh);
}

void KMBevelEdit::makeVertices()
{
    QVector<KMVertexOrigin> origins;
    for (int i = 0; i < m_places.size(); ++i) {
        KMVertex record;
        record.pos = m_places.at(i);
        record.weight = m_mesh.vertex(m_shape.points().at(i).vertex)->weight;
        KMMeshEdit::addVertex(m_mesh, record);
        origins << originOf(i);
    }
    KMMeshEdit::tellVerticesMade(m_mesh, origins);
}

/// A point that moves beyond its face has what the border of the face has.
KMVertexOrigin KMBevelEdit::originOf(int point) const
{
    const KMBevelShape::Point &home = m_shape.points().at(point);
    const KMFace &face = *m_mesh.face(home.face);
    const int next = cornerAfter(face, home.corner);
    const int previous = cornerBefore(face, home.corner);
    const Vector3 &origin = m_mesh.position(home.vertex);
    Shares shares = sharesOf(m_places.at(point) - origin, m_mesh.position(face.indices[next]) - origin,
                             m_mesh.position(face.indices[previous]) - origin);
    shares = {std::max(shares.next, 0.0f), std::max(shares.previous, 0.0f)};
    const float most = std::max(shares.next + shares.previous, 1.0f);
    shares = {shares.next / most, shares.previous / most};
    return {m_firstVertex + point,
            {{{home.vertex, 1.0f - shares.next - shares.previous},
              {face.indices[next], shares.next},
              {face.indices[previous], shares.previous}}}};
}

void KMBevelEdit::makeFaces()
{
    for (const int f : m_shape.faces())
        rewriteFace(f);
    for (const KMBevelShape::Strip &strip : m_shape.strips())
        addStrip(strip);
    for (const QVector<int> &fill : m_shape.fills())
        addFill(fill);
}

void KMBevelEdit::rewriteFace(int f)
{
    const KMFace &face = *m_mesh.face(f);
    Corners corners;
    for (int c = 0; c < face.count; ++c) {
        const KMBevelShape::Corner at = m_shape.corner(f, c);
        if (at.first < 0) {
            KMFace corner;
            copyCorner(corner, 0, face, c);
            corners << corner;
            continue;
        }
        corners << cornerAt(at.first, f, c);
        if (at.last != at.first)
            corners << cornerAt(at.last, f, c);
    }
    addTiles(corners, face, face.flags & KMElementFlag::Hidden);
}

/// Where the texture is cut along the edge, the strip belongs to the first face alone.
void KMBevelEdit::addStrip(const KMBevelShape::Strip &strip)
{
    const KMFace &face = *m_mesh.face(strip.face);
    const KMFace &other = *m_mesh.face(strip.otherFace);
    const int end = cornerAfter(face, strip.corner);
    const int otherEnd = cornerAfter(other, strip.otherCorner);
    const bool isCut = hasSeam(strip);
    const auto across = [&](int point, int otherCorner, int corner) {
        return isCut ? cornerAt(point, strip.face, corner, true) : cornerAt(point, strip.otherFace, otherCorner);
    };
    const QVector<int> ring = m_shape.stripPoints(strip, m_mesh);
    Corners corners;
    for (const KMFace &corner :
         {cornerAt(m_shape.corner(strip.face, strip.corner).last, strip.face, strip.corner),
          across(m_shape.corner(strip.otherFace, otherEnd).first, otherEnd, strip.corner),
          across(m_shape.corner(strip.otherFace, strip.otherCorner).last, strip.otherCorner, end),
          cornerAt(m_shape.corner(strip.face, end).first, strip.face, end)}) {
        const bool isNext =
            corners.size() < ring.size() && corner.indices[0] == m_firstVertex + ring.at(corners.size());
        if (isNext)
            corners << corner;
    }
    if (corners.size() > 2)
        addTiles(corners, face, KMElementFlag::Selected);
}

bool KMBevelEdit::hasSeam(const KMBevelShape::Strip &strip) const
{
    const KMFace &face = *m_mesh.face(strip.face);
    const KMFace &other = *m_mesh.face(strip.otherFace);
    return face.uvs[strip.corner] != other.uvs[cornerAfter(other, strip.otherCorner)]
           || face.uvs[cornerAfter(face, strip.corner)] != other.uvs[strip.otherCorner];
}

void KMBevelEdit::addFill(const QVector<int> &fill)
{
    const KMBevelShape::Point &home = m_shape.points().at(fill.first());
    const kvm::Vector2 uv = m_mesh.face(home.face)->uvs[home.corner];
    const bool isCut = std::any_of(fill.begin(), fill.end(), [&](int i) {
        const KMBevelShape::Point &point = m_shape.points().at(i);
        return m_mesh.face(point.face)->uvs[point.corner] != uv;
    });
    Corners corners;
    for (const int i : fill) {
        const KMBevelShape::Point &point = m_shape.points().at(i);
        corners << (isCut ? cornerAt(i, home.face, home.corner, true) : cornerAt(i, point.face, point.corner));
    }
    addTiles(corners, *m_mesh.face(home.face), KMElementFlag::Selected);
}

/// A point as a corner of a face. One that moves away over other faces carries what it has in its own, as long as the
/// texture goes on there, so that no seam opens.
KMFace KMBevelEdit::cornerAt(int point, int face, int corner) const
{
    const KMBevelShape::Point &home = m_shape.points().at(point);
    const KMFace &record = *m_mesh.face(face);
    const bool isBeside = home.face == face || record.next(corner) == home.slide
                          || record.indices[cornerBefore(record, corner)] == home.slide;
    const bool isOne = m_mesh.face(home.face)->uvs[home.corner] == record.uvs[corner];
    return isBeside || !isOne ? cornerAt(point, face, corner, false) : cornerAt(point, home.face, home.corner, false);
}

KMFace KMBevelEdit::cornerAt(int point, int face, int corner, bool staysInFace) const
{
    const KMFace &record = *m_mesh.face(face);
    const int next = cornerAfter(record, corner);
    const int previous = cornerBefore(record, corner);
    const Vector3 &origin = m_mesh.position(record.indices[corner]);
    Shares shares = sharesOf(m_places.at(point) - origin, m_mesh.position(record.indices[next]) - origin,
                             m_mesh.position(record.indices[previous]) - origin);
    if (staysInFace)
        shares = {std::clamp(shares.next, 0.0f, 1.0f), std::clamp(shares.previous, 0.0f, 1.0f)};
    KMFace made;
    copyCorner(made, 0, record, corner);
    made.indices[0] = m_firstVertex + point;
    made.uvs[0] = mixed(record.uvs, corner, next, previous, shares);
    made.colors[0] = mixed(record.colors, corner, next, previous, shares);
    return made;
}

Vector3 KMBevelEdit::placeOf(int vertex) const
{
    return vertex < m_firstVertex ? m_mesh.position(vertex) : m_places.at(vertex - m_firstVertex);
}

void KMBevelEdit::addTiles(const Corners &corners, const KMFace &like, quint8 flags)
{
    QVector<Vector3> polygon;
    for (const KMFace &corner : corners)
        polygon << placeOf(corner.indices[0]);
    for (const KMPolygonTiles::Tile &tile : KMPolygonTiles::split(polygon)) {
        KMFace face;
        face.count = tile.size();
        face.shader = like.shader;
        face.source = like.source;
        face.flags = flags;
        for (int c = 0; c < face.count; ++c)
            copyCorner(face, c, corners.at(tile.at(c)), 0);
        m_faces << face;
    }
}

int KMBevelEdit::nearestPoint(int vertex, const Vector3 &to) const
{
    int best = -1;
    for (int i = 0; i < m_places.size(); ++i) {
        const bool isCloser =
            best < 0 || (m_places.at(i) - to).lengthSquared() < (m_places.at(best) - to).lengthSquared();
        if (m_shape.points().at(i).vertex == vertex && isCloser)
            best = i;
    }
    return best;
}

/// Line polygons follow where their vertex goes.
void KMBevelEdit::moveLines()
{
    QSet<int> vertices;
    for (const KMBevelShape::Point &point : m_shape.points())
        vertices.insert(point.vertex);
    for (int f = 0; f < m_mesh.faceCount(); ++f) {
        const KMFace *face = m_mesh.face(f);
        if (!face || !face->isLine())
            continue;
        KMFace line = *face;
        for (int c = 0; c < line.count; ++c) {
            if (vertices.contains(face->indices[c]))
                line.indices[c] = m_firstVertex + nearestPoint(face->indices[c], placeOf(line.indices[1 - c]));
        }
        if (line.indices[0] != face->indices[0] || line.indices[1] != face->indices[1])
            m_lines.append({f, line});
    }
}

/// Creases follow the sides of the faces; those of a bevelled edge lie on both sides of its strip.
void KMBevelEdit::collectWeights()
{
    const auto vertexOf = [this](int point, int vertex) { return point < 0 ? vertex : m_firstVertex + point; };
    for (const int f : m_shape.faces()) {
        const KMFace &face = *m_mesh.face(f);
        for (int c = 0; c < face.count; ++c) {
            const float weight = edgeStateOf(m_mesh, face.indices[c], face.next(c)).weight;
            const int from = vertexOf(m_shape.corner(f, c).last, face.indices[c]);
            const int to = vertexOf(m_shape.corner(f, cornerAfter(face, c)).first, face.next(c));
            if (weight != 0.0f)
                m_weights.append({from, to, 0, weight});
        }
    }
}

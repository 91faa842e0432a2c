#include "mesh/KMExtrusionShape.h"

#include "mesh/KMCornerMotion.h"
#include "mesh/KMJoinedSets.h"
#include "mesh/KMMeshStore.h"

#include <QDebug>
#include <QHash>

#include <algorithm>

namespace {

using Face = KMExtrusionShape::Face;
using Side = KMExtrusionShape::Side;

int placeOf(int face, int corner)
{
    return face * KMFace::MaxCorners + corner;
}

int nextCorner(const Face &face, int corner)
{
    return corner + 1 < face.count ? corner + 1 : 0;
}

/// Each side with the key of its edge, sides on the same edge in a row.
QVector<QPair<quint64, Side>> sidesByEdge(const QVector<Face> &faces)
{
    QVector<QPair<quint64, Side>> sides;
    for (int f = 0; f < faces.size(); ++f) {
        const Face &face = faces.at(f);
        for (int c = 0; c < face.count; ++c)
            sides.append({KMEdge::keyOf(face.points[size_t(c)], face.next(c)), {f, c}});
    }
    std::stable_sort(sides.begin(), sides.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    return sides;
}

/// Which corners are the same in the copy, and which faces move as one.
class Joins
{
public:
    explicit Joins(const QVector<Face> &all)
        : corners(all.size() * KMFace::MaxCorners)
        , faces(all.size())
        , m_faces(all)
    {
    }

    void atEdge(const Side &first, const Side &other)
    {
        const Face &a = m_faces.at(first.face);
        const Face &b = m_faces.at(other.face);
        faces.join(first.face, other.face);
        const bool isTurned = a.points[size_t(first.corner)] != b.points[size_t(other.corner)];
        const int ends[] = {other.corner, nextCorner(b, other.corner)};
        corners.join(placeOf(first.face, first.corner), placeOf(other.face, ends[isTurned]));
        corners.join(placeOf(first.face, nextCorner(a, first.corner)), placeOf(other.face, ends[!isTurned]));
    }
    void atVertices()
    {
        QHash<int, int> places; // of the first corner at each vertex
        for (int f = 0; f < m_faces.size(); ++f) {
            for (int c = 0; c < m_faces.at(f).count; ++c) {
                const int vertex = m_faces.at(f).points[size_t(c)];
                const int first = places.value(vertex, placeOf(f, c));
                places.insert(vertex, first);
                corners.join(first, placeOf(f, c));
            }
        }
    }

    KMJoinedSets corners;
    KMJoinedSets faces;

private:
    const QVector<Face> &m_faces;
};

} // namespace

KMExtrusionShape::KMExtrusionShape(const KMMeshStore &mesh, const QVector<int> &faces, Joining joining)
{
    addFaces(mesh, faces);
    join(mesh, joining);
}

void KMExtrusionShape::addFaces(const KMMeshStore &mesh, const QVector<int> &faces)
{
    for (const int f : faces) {
        const KMFace *face = mesh.face(f);
        if (!face || !face->isPolygon())
            continue;
        const bool isWhole = std::all_of(face->indices, face->indices + face->count,
                                         [&mesh](int vertex) { return mesh.vertex(vertex); });
        if (!isWhole) {
            qDebug() << "hash not found";
            continue;
        }
        Face copy{f, 0, face->count, {}, KMCornerMotion::normalOf(mesh, *face)};
        std::copy_n(face->indices, face->count, copy.points.begin());
        m_faces << copy;
    }
}

void KMExtrusionShape::join(const KMMeshStore &mesh, Joining joining)
{
    Joins joins(m_faces);
    const QVector<QPair<quint64, Side>> sides = sidesByEdge(m_faces);
    for (int begin = 0, end = 0; begin < sides.size(); begin = end) {
        while (end < sides.size() && sides.at(end).first == sides.at(begin).first)
            ++end;
        const bool staysApart = joining == Joining::None || end - begin == 1;
        for (int i = begin; i < end && staysApart; ++i)
            m_sides << sides.at(i).second;
        for (int i = begin + 1; i < end && !staysApart; ++i)
            joins.atEdge(sides.at(begin).second, sides.at(i).second);
    }
    if (joining == Joining::Vertices)
        joins.atVertices();
    addPoints(mesh, joins.corners.roots(), joins.faces.roots());
}

void KMExtrusionShape::addPoints(const KMMeshStore &mesh, const QVector<int> &cornerRoots,
                                 const QVector<int> &faceRoots)
{
    QHash<int, int> points;
    QHash<int, int> groups;
    for (int f = 0; f < m_faces.size(); ++f) {
        Face &face = m_faces[f];
        face.group = groups.value(faceRoots.at(f), groups.size());
        groups.insert(faceRoots.at(f), face.group);
        for (int c = 0; c < face.count; ++c) {
            const int root = cornerRoots.at(placeOf(f, c));
            const int vertex = face.points[size_t(c)];
            const auto known = points.constFind(root);
            face.points[size_t(c)] = known != points.constEnd() ? *known : m_points.size();
            if (known != points.constEnd())
                continue;
            points.insert(root, m_points.size());
            m_points.append({vertex, mesh.position(vertex)});
        }
    }
    m_groupCount = groups.size();
}

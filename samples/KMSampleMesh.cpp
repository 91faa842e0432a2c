#include "KMSampleMesh.h"

#include "KMSampleWeights.h"

#include <QHash>
#include <QPair>

#include <algorithm>

namespace {

using Edge = QPair<int, int>;

/// Turns faces so that neighbours agree, and each closed surface so that its corners run clockwise seen from outside.
class Orientation
{
public:
    Orientation(const QVector<KMSampleMesh::Vertex> &vertices, QVector<KMSampleMesh::Face> &faces)
        : m_vertices(vertices)
        , m_faces(faces)
        , m_done(faces.size(), false)
    {
        for (int f = 0; f < faces.size(); ++f) {
            for (int c = 0; c < faces.at(f).count(); ++c)
                m_facesOf[sorted(edge(faces.at(f), c))] << f;
        }
    }

    void settle()
    {
        for (int f = 0; f < m_faces.size(); ++f) {
            if (!m_done.at(f))
                settleSurface(f);
        }
    }

private:
    static Edge sorted(const Edge &edge)
    {
        return {std::min(edge.first, edge.second), std::max(edge.first, edge.second)};
    }
    static Edge edge(const KMSampleMesh::Face &face, int corner)
    {
        return {face.corners[size_t(corner)], face.corners[size_t((corner + 1) % face.count())]};
    }
    static bool hasEdge(const KMSampleMesh::Face &face, const Edge &wanted)
    {
        for (int c = 0; c < face.count(); ++c) {
            if (edge(face, c) == wanted)
                return true;
        }
        return false;
    }
    static void turn(KMSampleMesh::Face &face)
    {
        std::reverse(face.corners.begin(), face.corners.begin() + face.count());
        std::reverse(face.uvs.begin(), face.uvs.begin() + face.count());
    }

    void settleSurface(int first)
    {
        QVector<int> surface{first};
        m_done[first] = true;
        for (int place = 0; place < surface.size(); ++place) {
            const KMSampleMesh::Face face = m_faces.at(surface.at(place));
            for (int c = 0; c < face.count(); ++c)
                settleNeighbours(edge(face, c), &surface);
        }
        if (volume(surface) < 0.0)
            return;
        for (const int f : std::as_const(surface))
            turn(m_faces[f]);
    }

    void settleNeighbours(const Edge &edge, QVector<int> *surface)
    {
        const QVector<int> neighbours = m_facesOf.value(sorted(edge));
        for (const int f : neighbours) {
            if (m_done.at(f))
                continue;
            m_done[f] = true;
            if (hasEdge(m_faces.at(f), edge))
                turn(m_faces[f]);
            surface->append(f);
        }
    }

    /// Six times that of the tetrahedra between the faces and the origin; above 0 where corners run counter-clockwise.
    double volume(const QVector<int> &surface) const
    {
        double sum = 0.0;
        for (const int f : surface) {
            const KMSampleMesh::Face &face = m_faces.at(f);
            for (int c = 2; c < face.count(); ++c) {
                const kvm::Vector3 &a = m_vertices.at(face.corners[0]).position;
                const kvm::Vector3 &b = m_vertices.at(face.corners[size_t(c - 1)]).position;
                sum += double(dot(a, cross(b, m_vertices.at(face.corners[size_t(c)]).position)));
            }
        }
        return sum;
    }

    const QVector<KMSampleMesh::Vertex> &m_vertices;
    QVector<KMSampleMesh::Face> &m_faces;
    QVector<bool> m_done;
    QHash<Edge, QVector<int>> m_facesOf;
};

} // namespace

int KMSampleMesh::addVertex(const kvm::Vector3 &position)
{
    m_vertices.append({position, {}, -1});
    return m_vertices.size() - 1;
}

KMSampleRing KMSampleMesh::addVertices(const QVector<kvm::Vector3> &positions)
{
    KMSampleRing ring;
    for (const kvm::Vector3 &position : positions)
        ring << addVertex(position);
    return ring;
}

void KMSampleMesh::addFace(const std::array<int, 4> &corners, int shader, const std::array<kvm::Vector2, 4> &uvs)
{
    m_faces.append({corners, uvs, shader});
}

void KMSampleMesh::projectUvs(int firstFace, const kvm::Vector2 &upperLeft, const kvm::Vector2 &lowerRight)
{
    for (int f = firstFace; f < m_faces.size(); ++f) {
        Face &face = m_faces[f];
        for (size_t c = 0; c < size_t(face.count()); ++c) {
            const kvm::Vector3 &p = position(face.corners[c]);
            face.uvs[c] = {(p.x - upperLeft.x) / (lowerRight.x - upperLeft.x),
                           (p.y - upperLeft.y) / (lowerRight.y - upperLeft.y)};
        }
    }
}

QByteArray KMSampleMesh::mirroredName(const QByteArray &bone)
{
    QByteArray name = bone;
    if (name.endsWith("_L"))
        name.replace(name.size() - 1, 1, "R");
    else if (name.endsWith("_R"))
        name.replace(name.size() - 1, 1, "L");
    return name;
}

/// What stands in the middle takes as much from the one side as from the other.
void KMSampleMesh::shareSeam(Vertex &vertex) const
{
    KMSampleShares both = vertex.shares;
    for (const KMSampleShare &share : std::as_const(vertex.shares))
        both.append({mirroredName(share.bone), share.weight});
    vertex.shares = KMSampleWeights::settled(both);
}

void KMSampleMesh::mirror()
{
    const int half = m_vertices.size();
    for (int i = 0; i < half; ++i) {
        Vertex image = m_vertices.at(i);
        if (image.position.x == 0.0f) {
            m_vertices[i].mirrored = i;
            shareSeam(m_vertices[i]);
            continue;
        }
        image.position.x = -image.position.x;
        image.mirrored = i;
        for (KMSampleShare &share : image.shares)
            share.bone = mirroredName(share.bone);
        m_vertices[i].mirrored = m_vertices.size();
        m_vertices.append(image);
    }
    const int halfFaces = m_faces.size();
    for (int f = 0; f < halfFaces; ++f) {
        Face image = m_faces.at(f);
        for (size_t c = 0; c < size_t(image.count()); ++c)
            image.corners[c] = m_vertices.at(image.corners[c]).mirrored;
        m_faces.append(image);
    }
}

void KMSampleMesh::finish()
{
    for (Vertex &vertex : m_vertices)
        vertex.shares = KMSampleWeights::settled(vertex.shares);
    mirror();
    Orientation(m_vertices, m_faces).settle();
}

#include "mesh/KMEdgeSplit.h"

#include "mesh/KMCornerSplit.h"
#include "mesh/KMJoinedSets.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"

#include <QMap>

namespace {

class EdgeSplitting
{
public:
    EdgeSplitting(KMMeshNode &mesh, quint8 flag)
        : m_mesh(mesh)
        , m_flag(flag)
        , m_split(mesh)
    {
    }

    bool run()
    {
        QMap<int, bool> ends;
        for (const KMEdge *edge : m_mesh.edges()) {
            if (edge->hasFlag(m_flag))
                ends[edge->index0] = ends[edge->index1] = true;
        }
        for (auto end = ends.cbegin(); end != ends.cend(); ++end) {
            if (m_mesh.vertex(end.key()))
                splitAt(end.key());
        }
        return m_split.apply();
    }

private:
    void splitAt(int vertex);

    KMMeshNode &m_mesh;
    quint8 m_flag;
    KMCornerSplit m_split;
};

/// Of the groups that only the flagged edges held together the first one keeps the vertex.
void EdgeSplitting::splitAt(int vertex)
{
    const KMRefList<4> faces = m_mesh.vertex(vertex)->faceRefs;
    QMap<int, QVector<int>> facesTo; // the other end of an edge at the vertex: places of the faces that have it
    for (int i = 0; i < faces.size(); ++i) {
        const KMFace &face = *m_mesh.face(faces[i]);
        const int corner = face.cornerOf(vertex);
        facesTo[face.next(corner)] << i;
        facesTo[face.indices[corner > 0 ? corner - 1 : face.count - 1]] << i;
    }
    // The faces around the vertex, as groups that hang together over edges at it.
    KMJoinedSets whole(faces.size());
    KMJoinedSets parts(faces.size());
    for (auto to = facesTo.cbegin(); to != facesTo.cend(); ++to) {
        const KMEdge *edge = m_mesh.findEdge(vertex, to.key());
        for (const int i : to.value()) {
            whole.join(to.value().first(), i);
            if (!edge || !edge->hasFlag(m_flag))
                parts.join(to.value().first(), i);
        }
    }
    QMap<int, int> copies;
    for (int i = 0; i < faces.size(); ++i) {
        const int part = parts.rootOf(i);
        if (part == whole.rootOf(i))
            continue;
        if (!copies.contains(part))
            copies[part] = m_split.addCopy(vertex);
        m_split.moveCorner(faces[i], vertex, copies.value(part));
    }
}

} // namespace

bool KMMeshEdit::splitEdges(KMMeshNode &mesh, quint8 flag)
{
    settleEdges(mesh);
    return EdgeSplitting(mesh, flag).run();
}

bool KMMeshEdit::separateVertices(KMMeshNode &mesh, const QVector<int> &vertices)
{
    KMCornerSplit split(mesh);
    QVector<int> left;
    for (const int vertex : vertices) {
        if (!mesh.vertex(vertex) || mesh.vertex(vertex)->faceRefs.size() < 2)
            continue;
        const KMRefList<4> faces = mesh.vertex(vertex)->faceRefs;
        for (const int f : faces)
            split.moveCorner(f, vertex, split.addCopy(vertex));
        left << vertex;
    }
    if (!split.apply())
        return false;
    for (const int vertex : std::as_const(left))
        deleteVertex(mesh, vertex);
    return true;
}

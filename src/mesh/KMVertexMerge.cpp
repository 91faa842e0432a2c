#include "mesh/KMVertexMerge.h"

#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMEdgeState.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMVertexCommands.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

class VertexMerge
{
public:
    VertexMerge(KMMeshNode &mesh, int remove, int keep)
        : m_mesh(mesh)
        , m_remove(remove)
        , m_keep(keep)
        , m_edges(mergedEdges())
    {
    }

    void run()
    {
        takeSharedFaces();
        weld();
        rebuildQuads();
        dropDoubledLines();
        closeSeams();
        restoreEdges();
    }

private:
    QVector<KMEdgeState> mergedEdges() const;
    void takeSharedFaces();
    void weld();
    void rebuildQuads();
    void dropDoubledLines();
    bool isOnOtherFace(int line) const;
    void closeSeams();
    void closeSeam(int face, int corner);
    void restoreEdges();
    KMRefList<4> facesAt(int vertex) const { return m_mesh.vertex(vertex)->faceRefs; }

    KMMeshNode &m_mesh;
    int m_remove;
    int m_keep;
    QVector<KMEdgeState> m_edges;  // of the removed vertex, where they carry something
    QVector<KMFace> m_sharedFaces; // those that had both vertices
};

/// What lies on the edges between the removed vertex and others than the kept one. Faces alone would not carry it
/// over: some of them go.
QVector<KMEdgeState> VertexMerge::mergedEdges() const
{
    QVector<KMEdgeState> merged;
    for (const int f : facesAt(m_remove)) {
        const QVector<KMEdgeState> states = edgeStatesOf(m_mesh, *m_mesh.face(f));
        for (const KMEdgeState &state : states) {
            if (state.isPlain() || (state.a != m_remove && state.b != m_remove))
                continue;
            const int end = state.a == m_remove ? state.b : state.a;
            if (end != m_keep && end != m_remove)
                merged.append({m_keep, end, state.flags, state.weight});
        }
    }
    return merged;
}

void VertexMerge::takeSharedFaces()
{
    for (const int f : facesAt(m_remove)) {
        if (!m_mesh.face(f)->hasVertex(m_keep))
            continue;
        m_sharedFaces.append(*m_mesh.face(f));
        KMMeshEdit::deleteFace(m_mesh, f);
    }
}

void VertexMerge::weld()
{
    for (const int f : facesAt(m_remove)) {
        KMFace face = *m_mesh.face(f);
        std::replace(face.indices, face.indices + face.count, m_remove, m_keep);
        KMMeshEdit::editFace(m_mesh, f, face); // the lists of both vertices follow
    }
    gSolution->push(new deleteVertexCommand(&m_mesh, m_remove));
}

/// A quad is left without the corner that went, the others in their order.
void VertexMerge::rebuildQuads()
{
    for (const KMFace &quad : std::as_const(m_sharedFaces)) {
        if (quad.count != 4)
            continue;
        KMFace triangle = quad;
        triangle.count = 0;
        bool isSound = true;
        for (int c = 0; c < quad.count; ++c) {
            if (quad.indices[c] == m_remove)
                continue;
            isSound &= !triangle.hasVertex(quad.indices[c]);
            copyCorner(triangle, triangle.count++, quad, c);
        }
        if (isSound && triangle.count == 3)
            KMMeshEdit::addFace(m_mesh, triangle);
    }
}

bool VertexMerge::isOnOtherFace(int line) const
{
    const KMFace *own = m_mesh.face(line);
    const quint64 key = KMEdge::keyOf(own->indices[0], own->indices[1]);
    for (const int f : facesAt(m_keep)) {
        const KMFace *face = m_mesh.face(f);
        for (int c = 0; f != line && c < face->count; ++c) {
            if (KMEdge::keyOf(face->indices[c], face->next(c)) == key)
                return true;
        }
    }
    return false;
}

void VertexMerge::dropDoubledLines()
{
    for (const int f : facesAt(m_keep)) {
        if (m_mesh.face(f)->isLine() && isOnOtherFace(f))
            KMMeshEdit::deleteFace(m_mesh, f);
    }
}

void VertexMerge::closeSeams()
{
    for (const int f : facesAt(m_keep)) {
        for (int c = 0; c < m_mesh.faceCornerCount(f); ++c) {
            if (m_mesh.face(f)->indices[c] == m_keep)
                closeSeam(f, c);
        }
    }
}

/// The first face that tells where the UV goes decides: a UV must not wander on from one of them to the next.
void VertexMerge::closeSeam(int face, int corner)
{
    const kvm::Vector2 uv = m_mesh.face(face)->uvs[corner];
    for (const KMFace &shared : std::as_const(m_sharedFaces)) {
        if (shared.isPolygon() && shared.uvs[shared.cornerOf(m_remove)] == uv) {
            KMMeshEdit::editFaceUV(m_mesh, face, corner, shared.uvs[shared.cornerOf(m_keep)]);
            return;
        }
    }
}

/// Where an edge of the removed vertex fell onto one of the kept vertex, the heavier crease counts.
void VertexMerge::restoreEdges()
{
    if (m_edges.isEmpty())
        return;
    gSolution->push(new buildEdgeCommand(&m_mesh));
    for (const KMEdgeState &state : std::as_const(m_edges)) {
        const KMEdge *edge = m_mesh.findEdge(state.a, state.b);
        if (!edge)
            continue;
        if (state.weight > edge->weight)
            KMMeshEdit::setEdgeWeight(m_mesh, state.a, state.b, state.weight);
        if (state.flags & KMElementFlag::Selected)
            KMMeshEdit::selectEdge(m_mesh, state.a, state.b, true);
    }
}

} // namespace

bool KMMeshEdit::mergeVertex(KMMeshNode &mesh, int remove, int keep)
{
    const bool isRefused = mesh.isLocked() || mesh.ownerNode();
    if (isRefused || remove == keep || !mesh.vertex(remove) || !mesh.vertex(keep))
        return false;
    const KMUndoMacro macro(QCoreApplication::translate("KMMeshEdit", "Merge Vertex"));
    VertexMerge(mesh, remove, keep).run();
    return true;
}

#include "mesh/KMVertexMerge.h"

#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMEdgeState.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "mesh/KMVertexCommands.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>

namespace {

/// What lies on edges of vertices that go, and comes to lie on those of the vertices that stay. Faces alone would not
/// carry it over: some of them go. Edges of a mesh are derived anew once, when all merges are done.
class CarriedEdges
{
public:
    explicit CarriedEdges(KMMeshNode &mesh)
        : m_mesh(mesh)
    {
    }

    void carry(int remove, int keep); ///< before that merge
    void restore();

private:
    KMEdgeState stateOf(int a, int b) const;
    void join(int a, int b, const KMEdgeState &state);

    KMMeshNode &m_mesh;
    QVector<KMEdgeState> m_states;
    QHash<quint64, int> m_places; // in m_states
};

class VertexMerge
{
public:
    VertexMerge(KMMeshNode &mesh, int remove, int keep)
        : m_mesh(mesh)
        , m_remove(remove)
        , m_keep(keep)
    {
    }

    void run()
    {
        takeSharedFaces();
        weld();
        rebuildQuads();
        dropDoubledLines();
        closeSeams();
    }

private:
    void takeSharedFaces();
    void weld();
    void rebuildQuads();
    void dropDoubledLines();
    bool isOnOtherFace(int line) const;
    void closeSeams();
    void closeSeam(int face, int corner);
    KMRefList<4> facesAt(int vertex) const { return m_mesh.vertex(vertex)->faceRefs; }

    KMMeshNode &m_mesh;
    int m_remove;
    int m_keep;
    QVector<KMFace> m_sharedFaces; // those that had both vertices
};

/// An edge that a merge before this one has brought is known here only.
KMEdgeState CarriedEdges::stateOf(int a, int b) const
{
    KMEdgeState state = edgeStateOf(m_mesh, a, b);
    const int place = m_places.value(KMEdge::keyOf(a, b), -1);
    if (place >= 0) {
        state.flags |= m_states.at(place).flags;
        state.weight = std::max(state.weight, m_states.at(place).weight);
    }
    return state;
}

void CarriedEdges::join(int a, int b, const KMEdgeState &state)
{
    const quint64 key = KMEdge::keyOf(a, b);
    const auto known = m_places.constFind(key);
    if (known == m_places.constEnd()) {
        m_places.insert(key, m_states.size());
        m_states.append({a, b, state.flags, state.weight});
        return;
    }
    KMEdgeState &present = m_states[known.value()];
    present.flags |= state.flags;
    present.weight = std::max(present.weight, state.weight);
}

/// The edges between the removed vertex and others than the kept one.
void CarriedEdges::carry(int remove, int keep)
{
    for (const int f : m_mesh.vertex(remove)->faceRefs) {
        const KMFace *face = m_mesh.face(f);
        for (int c = 0; c < face->count; ++c) {
            const int from = face->indices[c], to = face->next(c);
            if (from != remove && to != remove)
                continue;
            const int end = from == remove ? to : from;
            const KMEdgeState state = stateOf(from, to);
            if (!state.isPlain() && end != keep && end != remove)
                join(keep, end, state);
        }
    }
}

/// Where an edge of a removed vertex fell onto one of the kept vertex, the heavier crease counts.
void CarriedEdges::restore()
{
    if (m_states.isEmpty())
        return;
    gSolution->push(new buildEdgeCommand(&m_mesh));
    for (const KMEdgeState &state : std::as_const(m_states)) {
        const KMEdge *edge = m_mesh.findEdge(state.a, state.b);
        if (!edge) // one of its ends went on
            continue;
        if (state.weight > edge->weight)
            KMMeshEdit::setEdgeWeight(m_mesh, state.a, state.b, state.weight);
        if (state.flags & KMElementFlag::Selected)
            KMMeshEdit::selectEdge(m_mesh, state.a, state.b, true);
    }
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

} // namespace

bool KMMeshEdit::mergeVertex(KMMeshNode &mesh, int remove, int keep)
{
    return mergeVertices(mesh, {{remove, keep}}) > 0;
}

int KMMeshEdit::mergeVertices(KMMeshNode &mesh, const QVector<KMVertexPair> &pairs)
{
    const auto canMerge = [&mesh](const KMVertexPair &pair) {
        return pair.remove != pair.keep && mesh.vertex(pair.remove) && mesh.vertex(pair.keep);
    };
    if (mesh.isLocked() || !KMMeshTargets::hasOwnTopology(mesh) || std::none_of(pairs.begin(), pairs.end(), canMerge))
        return 0;
    const KMUndoMacro macro(QCoreApplication::translate("KMMeshEdit", "Merge Vertex"));
    CarriedEdges edges(mesh);
    int merged = 0;
    for (const KMVertexPair &pair : pairs) {
        if (!canMerge(pair))
            continue;
        edges.carry(pair.remove, pair.keep);
        VertexMerge(mesh, pair.remove, pair.keep).run();
        ++merged;
    }
    edges.restore();
    return merged;
}

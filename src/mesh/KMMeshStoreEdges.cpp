// How the edges of a mesh follow from its faces.

#include "mesh/KMEdgeState.h"
#include "mesh/KMMeshStore.h"

KMEdge *KMMeshStore::addEdgeRef(int face, int a, int b)
{
    KMEdge *edge = m_edges.findOrAdd(a, b);
    edge->faceRefs.append(face);
    return edge;
}

bool KMMeshStore::hasEdgeFlag(quint8 bit) const
{
    for (const KMEdge *edge : m_edges) {
        if (edge->hasFlag(bit))
            return true;
    }
    return false;
}

int KMMeshStore::faceOfEdge(int a, int b) const
{
    const KMEdge *edge = findEdge(a, b);
    if (!edge)
        return -1;
    for (const int f : edge->faceRefs) {
        const KMFace *line = face(f);
        if (line && line->isLine() && line->hasVertex(a) && line->hasVertex(b))
            return f;
    }
    return -1;
}

QVector<KMEdgeState> KMMeshStore::edgeStates() const
{
    QVector<KMEdgeState> states;
    for (const KMEdge *edge : m_edges) {
        if (edge->flags || edge->weight != 0.0f)
            states.append({edge->index0, edge->index1, edge->flags, edge->weight});
    }
    return states;
}

/// Derives the edges from the faces and gives the states to those that exist again. Returns the other states.
QVector<KMEdgeState> KMMeshStore::rederiveEdges(const QVector<KMEdgeState> &states)
{
    QVector<KMEdgeState> lost;
    buildEdges();
    for (const KMEdgeState &state : states) {
        KMEdge *edge = findEdge(state.a, state.b);
        if (!edge) {
            lost.append(state);
            continue;
        }
        edge->flags = state.flags;
        edge->weight = state.weight;
    }
    return lost;
}

void KMMeshStore::rebuildEdges()
{
    rederiveEdges(edgeStates());
}

void KMMeshStore::buildEdges()
{
    m_edges.clear();
    insertEdges();
}

void KMMeshStore::insertEdges()
{
    m_edges.reserve(2 * m_faces.size()); // as many as a closed mesh of quads has
    KMFace *const *faces = m_faces.constData();
    KMVertex *const *vertices = m_vertices.constData();
    for (int f = 0, n = m_faces.size(); f < n; ++f) {
        const KMFace *face = faces[f];
        if (!face)
            continue;
        for (int c = 0; c < face->count; ++c) {
            const int a = face->indices[c];
            const int b = face->next(c);
            if (vertices[a] && vertices[b])
                addEdgeRef(f, a, b);
        }
    }
}

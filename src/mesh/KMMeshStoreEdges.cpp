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

QVector<KMEdgeState> KMMeshStore::takeEdges()
{
    const QVector<KMEdgeState> states = edgeStates();
    m_edges.clear();
    m_edges.reserve(2 * m_faces.size()); // as many as a closed mesh of quads has
    return states;
}

void KMMeshStore::giveBack(const QVector<KMEdgeState> &states)
{
    for (const KMEdgeState &state : states) {
        if (KMEdge *edge = findEdge(state.a, state.b)) {
            edge->flags = state.flags;
            edge->weight = state.weight;
        }
    }
}

void KMMeshStore::insertEdges()
{
    KMFace *const *faces = m_faces.constData();
    for (int f = 0, n = m_faces.size(); f < n; ++f) {
        if (faces[f])
            insertEdgesOf(f, *faces[f]);
    }
}

void KMMeshStore::rebuildEdges()
{
    const QVector<KMEdgeState> states = takeEdges();
    insertEdges();
    giveBack(states);
}

void KMMeshStore::buildEdges()
{
    takeEdges();
    insertEdges();
}

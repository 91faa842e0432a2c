// How the edges of a mesh follow from its faces.

#include "mesh/KMEdgeState.h"
#include "mesh/KMMeshStore.h"

KMEdge *KMMeshStore::addEdgeRef(int face, int a, int b)
{
    KMEdge *edge = findOrAddEdge(a, b);
    edge->faceRefs.append(face);
    m_edgesFollow = false;
    return edge;
}

KMEdge *KMMeshStore::findOrAddEdge(int a, int b)
{
    const int before = m_edges.size();
    KMEdge *edge = m_edges.findOrAdd(a, b);
    m_looseEdges += m_edges.size() - before;
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

void KMMeshStore::beginCorners()
{
    for (int f = faceCount(); f < m_corners.faceCount(); ++f)
        noteChange(f, m_corners.of(f));
    m_corners.begin(vertexCount(), faceCount());
}

void KMMeshStore::noteChange(int f, const KMCornerTable::Corners &before)
{
    if (!m_edgesFollow)
        return;
    m_changes.push_back({f, before});
    m_edgesFollow = int(m_changes.size()) <= KMEdgePatch::limit(faceCount());
}

void KMMeshStore::readCorners()
{
    beginCorners();
    KMFace *const *faces = m_faces.constData();
    for (int f = 0, n = m_faces.size(); f < n; ++f)
        takeCorners(f, faces[f]);
}

/// Empties the edge table for edges to come from the faces one by one. Returns what the edges carried.
QVector<KMEdgeState> KMMeshStore::takeEdges()
{
    const QVector<KMEdgeState> states = edgeStates();
    m_edges.clear();
    m_edges.reserve(2 * m_faces.size()); // as many as a closed mesh of quads has
    return states;
}

/// To the edges that exist again.
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
    for (int f = 0, n = m_corners.faceCount(); f < n; ++f) {
        KMCornerTable::forEachSide(m_corners.of(f),
                                   [this, f](int a, int b, int) { m_edges.findOrAdd(a, b)->faceRefs.append(f); });
    }
    m_edgesFollow = true;
    forgetChanges();
}

void KMMeshStore::forgetChanges()
{
    m_changes.clear();
    m_looseEdges = 0;
}

void KMMeshStore::updateEdges()
{
    if (m_edgesFollow && m_looseEdges <= KMEdgePatch::limit(faceCount())) {
        if (!m_changes.empty() || m_looseEdges > 0)
            KMEdgePatch(m_edges, m_corners).apply(m_changes, m_looseEdges);
        forgetChanges();
        return;
    }
    const QVector<KMEdgeState> states = takeEdges();
    insertEdges();
    giveBack(states);
}

void KMMeshStore::rebuildEdges()
{
    readCorners();
    updateEdges();
}

void KMMeshStore::buildEdges()
{
    readCorners();
    m_edges.clear();
    m_edges.reserve(2 * m_faces.size());
    insertEdges();
}

#include "mesh/KMCornerSplit.h"

#include "core/KMSolution.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMEdgeState.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"

#include <algorithm>
#include <utility>

int KMCornerSplit::addCopy(int vertex)
{
    const int copy = KMMeshEdit::addVertex(m_mesh, *m_mesh.vertex(vertex));
    m_origins << KMVertexOrigin::copyOf(vertex, copy);
    return copy;
}

bool KMCornerSplit::apply()
{
    if (m_moves.isEmpty())
        return false;
    KMMeshEdit::tellVerticesMade(m_mesh, std::exchange(m_origins, {}));
    QVector<KMEdgeState> states; // of the edges by their new ends
    for (auto moves = m_moves.cbegin(); moves != m_moves.cend(); ++moves) {
        const KMFace before = *m_mesh.face(moves.key());
        KMFace after = before;
        for (const Move &move : moves.value())
            std::replace(after.indices, after.indices + after.count, move.vertex, move.copy);
        const QVector<KMEdgeState> old = edgeStatesOf(m_mesh, before);
        for (int c = 0; c < after.count; ++c)
            states.append({after.indices[c], after.next(c), old.at(c).flags, old.at(c).weight});
        KMMeshEdit::editFace(m_mesh, moves.key(), after);
    }
    gSolution->push(new buildEdgeCommand(&m_mesh));
    for (const KMEdgeState &state : std::as_const(states)) {
        KMMeshEdit::setEdgeWeight(m_mesh, state.a, state.b, state.weight);
        KMMeshEdit::selectEdge(m_mesh, state.a, state.b, state.flags & KMElementFlag::Selected);
    }
    m_moves.clear();
    return true;
}

#include "mesh/KMEdgeState.h"

#include "mesh/KMMeshStore.h"

namespace {

constexpr quint8 highlight = KMElementFlag::Hot | KMElementFlag::HotSecond;

} // namespace

KMEdgeState edgeStateOf(const KMMeshStore &mesh, int a, int b)
{
    const KMEdge *edge = mesh.findEdge(a, b);
    return edge ? KMEdgeState{a, b, quint8(edge->flags & ~highlight), edge->weight} : KMEdgeState{a, b, 0, 0.0f};
}

QVector<KMEdgeState> edgeStatesOf(const KMMeshStore &mesh, const KMFace &face)
{
    QVector<KMEdgeState> states;
    states.reserve(face.count);
    for (int c = 0; c < face.count; ++c)
        states.append(edgeStateOf(mesh, face.indices[c], face.next(c)));
    return states;
}

void restoreEdgeState(KMMeshStore &mesh, const KMEdgeState &state)
{
    KMEdge *edge = state.isPlain() ? mesh.findEdge(state.a, state.b) : mesh.findOrAddEdge(state.a, state.b);
    if (!edge)
        return;
    edge->flags = (edge->flags & highlight) | state.flags;
    edge->weight = state.weight;
}

void restoreEdgeStates(KMMeshStore &mesh, const QVector<KMEdgeState> &states)
{
    for (const KMEdgeState &state : states)
        restoreEdgeState(mesh, state);
}

#include "mesh/KMEdgeCommands.h"

#include "mesh/KMMeshNode.h"

setEdgeWeightCommand::setEdgeWeightCommand(KMMeshNode *mesh, int a, int b, float weight)
    : KMMeshCommand(tr("Set Edge Weight"), mesh)
    , m_a(a)
    , m_b(b)
    , m_exists(mesh->findEdge(a, b))
    , m_before(edgeStateOf(*mesh, a, b).weight)
    , m_after(weight)
{
}

void setEdgeWeightCommand::apply(Direction direction)
{
    if (!m_exists)
        return;
    // The edge may wait for a refresh to come back; what it carries is kept for it.
    mesh()->findOrAddEdge(m_a, m_b)->weight = direction == Direction::Redo ? m_after : m_before;
    mesh()->markDirty(KMMeshDirty::Weights);
}

memoryEdgeWeightCommand::memoryEdgeWeightCommand(KMMeshNode *mesh)
    : KMMeshBothWaysCommand(tr("Memory Edge Weight"), mesh)
{
    m_weights.reserve(mesh->edgeCount());
    for (const KMEdge *edge : mesh->edges())
        m_weights.append({edge->index0, edge->index1, 0, edge->weight});
}

void memoryEdgeWeightCommand::restore()
{
    for (const KMEdgeState &state : std::as_const(m_weights)) {
        KMEdge *edge = mesh()->findEdge(state.a, state.b);
        if (!edge && state.weight != 0.0f)
            edge = mesh()->findOrAddEdge(state.a, state.b);
        if (edge)
            edge->weight = state.weight;
    }
}

buildEdgeCommand::buildEdgeCommand(KMMeshNode *mesh)
    : KMMeshBothWaysCommand(tr("Build Edge"), mesh)
{
}

void buildEdgeCommand::restore()
{
    mesh()->rebuildEdges();
    mesh()->markDirty(KMMeshDirty::All);
}

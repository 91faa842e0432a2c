#include "mesh/KMEdgeCommands.h"

#include "mesh/KMMeshNode.h"

setEdgeWeightCommand::setEdgeWeightCommand(KMMeshNode *mesh, int a, int b, float weight)
    : KMMeshCommand(tr("Set Edge Weight"), mesh)
    , m_a(a)
    , m_b(b)
    , m_before(0.0f)
    , m_after(weight)
{
    if (const KMEdge *edge = mesh->findEdge(a, b))
        m_before = edge->weight;
}

void setEdgeWeightCommand::apply(Direction direction)
{
    KMEdge *edge = mesh()->findEdge(m_a, m_b);
    if (!edge)
        return;
    edge->weight = direction == Direction::Redo ? m_after : m_before;
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
        if (KMEdge *edge = mesh()->findEdge(state.a, state.b))
            edge->weight = state.weight;
    }
}

buildEdgeCommand::buildEdgeCommand(KMMeshNode *mesh) : KMMeshBothWaysCommand(tr("Build Edge"), mesh) {}

void buildEdgeCommand::restore()
{
    mesh()->rebuildEdges();
    mesh()->markDirty(KMMeshDirty::All);
}

#include "mesh/KMVertexCommands.h"

#include "mesh/KMMeshNode.h"

namespace {

/// The result of a modifier may have been made anew since the step, with fewer vertices.
void setPositionIfThere(KMMeshNode &mesh, int index, const kvm::Vector3 &position)
{
    if (mesh.vertex(index))
        mesh.setPosition(index, position);
}

} // namespace

addVertexCommand::addVertexCommand(KMMeshNode *mesh, const kvm::Vector3 &position)
    : KMMeshCommand(tr("Add Vertex"), mesh)
    , m_index(mesh->addVertexRaw(position))
{
    m_record.pos = position;
}

addVertexCommand::addVertexCommand(KMMeshNode *mesh, const KMVertex &record)
    : KMMeshCommand(tr("Add Vertex"), mesh)
    , m_record(record)
    , m_index(mesh->addVertexRaw(record.pos))
{
    m_record.faceRefs.clear();
}

void addVertexCommand::apply(Direction direction)
{
    if (direction == Direction::Redo)
        mesh()->placeVertex(m_index, m_record);
    else
        mesh()->takeVertex(m_index);
    mesh()->markDirty(KMMeshDirty::All);
}

deleteVertexCommand::deleteVertexCommand(KMMeshNode *mesh, int index)
    : KMMeshCommand(tr("Delete Vertex"), mesh)
    , m_index(index)
    , m_kept(!mesh->vertex(index))
{
    if (m_kept)
        return;
    m_record = *mesh->vertex(index);
    for (const int f : m_record.faceRefs) {
        const QVector<KMEdgeState> states = edgeStatesOf(*mesh, *mesh->face(f));
        for (const KMEdgeState &state : states) {
            if ((state.a == index || state.b == index) && !state.isPlain())
                m_edges.append(state);
        }
    }
}

void deleteVertexCommand::apply(Direction direction)
{
    if (m_kept)
        return;
    if (direction == Direction::Redo) {
        mesh()->setVertex(m_index, nullptr);
    } else {
        mesh()->placeVertex(m_index, m_record);
        restoreEdgeStates(*mesh(), m_edges);
    }
    mesh()->markDirty(KMMeshDirty::All);
}

editVertexTopologyCommand::editVertexTopologyCommand(KMMeshNode *mesh, int index, const KMVertex &record)
    : KMMeshCommand(tr("Edit Vertex Topology"), mesh)
    , m_index(index)
    , m_before(*mesh->vertex(index))
    , m_after(record)
{
}

void editVertexTopologyCommand::apply(Direction direction)
{
    mesh()->placeVertex(m_index, direction == Direction::Redo ? m_after : m_before);
    mesh()->markDirty(KMMeshDirty::All);
}

moveVertexCommand::moveVertexCommand(KMMeshNode *mesh, int index, const kvm::Vector3 &position)
    : moveVertexCommand(mesh, index, mesh->position(index), position)
{
}

moveVertexCommand::moveVertexCommand(KMMeshNode *mesh, int index, const kvm::Vector3 &before, const kvm::Vector3 &after)
    : KMMeshCommand(tr("Move Vertex"), mesh)
    , m_index(index)
    , m_before(before)
    , m_after(after)
{
}

void moveVertexCommand::apply(Direction direction)
{
    setPositionIfThere(*mesh(), m_index, direction == Direction::Redo ? m_after : m_before);
    mesh()->markMoved();
}

moveVertexArrayCommand::moveVertexArrayCommand(KMMeshNode *mesh, QVector<KMMovedVertex> &moves)
    : KMMeshCommand(tr("Move Vertex"), mesh)
{
    m_moves.swap(moves);
    m_moves.squeeze();
}

void moveVertexArrayCommand::apply(Direction direction)
{
    const auto side = direction == Direction::Redo ? &KMMovedVertex::after : &KMMovedVertex::before;
    for (const KMMovedVertex &move : std::as_const(m_moves))
        setPositionIfThere(*mesh(), move.index, move.*side);
    mesh()->markMoved();
}

editAllVertexCommand::editAllVertexCommand(KMMeshNode *mesh, const QVector<kvm::Vector3> &positions)
    : KMMeshCommand(tr("Edit All Vertex"), mesh)
    , m_before(mesh->vertexCount())
    , m_after(positions)
{
    for (int i = 0; i < m_before.size(); ++i) {
        if (mesh->vertex(i))
            m_before[i] = mesh->position(i);
    }
}

void editAllVertexCommand::apply(Direction direction)
{
    const QVector<kvm::Vector3> &positions = direction == Direction::Redo ? m_after : m_before;
    for (int i = 0; i < positions.size(); ++i) {
        if (mesh()->vertex(i))
            mesh()->setPosition(i, positions.at(i));
    }
    mesh()->markMoved();
}

memoryVertexCommand::memoryVertexCommand(KMMeshNode *mesh)
    : KMMeshBothWaysCommand(tr("Memory Vertex"), mesh)
{
    m_positions.resize(3 * mesh->vertexCount());
    for (int i = 0; i < mesh->vertexCount(); ++i) {
        if (mesh->vertex(i))
            std::copy_n(mesh->position(i).data(), 3, m_positions.data() + 3 * i);
    }
}

memoryVertexCommand::memoryVertexCommand(KMMeshNode *mesh, const QVector<float> &positions)
    : KMMeshBothWaysCommand(tr("Memory Vertex"), mesh)
    , m_positions(positions)
{
}

void memoryVertexCommand::restore()
{
    const float *in = m_positions.constData();
    for (int i = 0; i < m_positions.size() / 3; ++i, in += 3) {
        if (mesh()->vertex(i))
            mesh()->setPosition(i, {in[0], in[1], in[2]});
    }
}

setVertexWeightCommand::setVertexWeightCommand(KMMeshNode *mesh, int index, float weight)
    : KMMeshCommand(tr("Set Vertex Weight"), mesh)
    , m_index(index)
    , m_before(mesh->vertex(index)->weight)
    , m_after(weight)
{
}

void setVertexWeightCommand::apply(Direction direction)
{
    mesh()->vertex(m_index)->weight = direction == Direction::Redo ? m_after : m_before;
    mesh()->markDirty(KMMeshDirty::Weights);
}

#include "mesh/KMMeshNodeCommands.h"

#include "mesh/KMMeshNode.h"

KMMeshAttributes attributesOf(const KMMeshNode &mesh)
{
    return {mesh.smoothAngle()};
}

editMeshNodeCommand::editMeshNodeCommand(KMMeshNode *mesh, const KMMeshAttributes &attributes)
    : KMMeshCommand(tr("Edit MeshNode"), mesh)
    , m_before(attributesOf(*mesh))
    , m_after(attributes)
{
}

void editMeshNodeCommand::apply(Direction direction)
{
    mesh()->setSmoothAngle((direction == Direction::Redo ? m_after : m_before).smoothAngle);
}

forceMeshUpdateCommand::forceMeshUpdateCommand(KMMeshNode *mesh)
    : KMMeshBothWaysCommand(tr("Force Update"), mesh)
{
}

void forceMeshUpdateCommand::restore()
{
    mesh()->refreshMesh(KMMeshDirty::Buffers);
    mesh()->markDirty(KMMeshDirty::All);
}

compactMeshCommand::compactMeshCommand(KMMeshNode *mesh)
    : KMMeshCommand(tr("Compact"), mesh)
{
}

void compactMeshCommand::apply(Direction direction)
{
    if (direction == Direction::Redo) {
        mesh()->applyCompact(&m_dropped);
        return;
    }
    mesh()->applyExpand(m_dropped);
    m_dropped = {};
}

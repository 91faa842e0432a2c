#include "mesh/KMMeshUVCommands.h"

#include "mesh/KMMeshNode.h"

editFaceUVCommand::editFaceUVCommand(KMMeshNode *mesh, int face, int corner, const kvm::Vector2 &uv)
    : editFaceUVCommand(mesh, face, corner, mesh->face(face)->uvs[corner], uv)
{
}

editFaceUVCommand::editFaceUVCommand(KMMeshNode *mesh, int face, int corner, const kvm::Vector2 &before,
                                     const kvm::Vector2 &after)
    : KMMeshCommand(tr("Edit Face UV"), mesh)
    , m_face(face)
    , m_corner(corner)
    , m_before(before)
    , m_after(after)
{
}

void editFaceUVCommand::apply(Direction direction)
{
    mesh()->face(m_face)->uvs[m_corner] = direction == Direction::Redo ? m_after : m_before;
    mesh()->markDirty(KMMeshDirty::All);
}

setSelectUVCommand::setSelectUVCommand(KMMeshNode *mesh, int face, int corner, bool selected)
    : KMElementFlagCommand(tr("Set Select UV"), mesh, Element::Corner, KMElementFlag::Selected, selected, face, corner)
{
}

setLockUVCommand::setLockUVCommand(KMMeshNode *mesh, int face, int corner, bool locked)
    : KMElementFlagCommand(tr("Set Pinned UV"), mesh, Element::Corner, KMElementFlag::UVLocked, locked, face, corner)
{
}

#include "mesh/KMNormalCommands.h"

#include "mesh/KMMeshNode.h"

editNormalCommand::editNormalCommand(KMTagNormal *tag, const KMNormalFace &record)
    : KMMeshCommand(tr("Edit Normal"), tag->mesh())
    , m_tag(tag)
    , m_before(tag->faceNormal(record.face))
    , m_after(record)
{
}

void editNormalCommand::apply(Direction direction)
{
    m_tag->setFaceNormal(direction == Direction::Redo ? m_after : m_before);
    mesh()->markDirty(KMMeshDirty::Positions | KMMeshDirty::VertexFlags);
}

creaseNormalCommand::creaseNormalCommand(KMTagNormal *tag, int a, int b, bool crease)
    : KMMeshCommand(tr("Edit Normal"), tag->mesh())
    , m_tag(tag)
    , m_a(a)
    , m_b(b)
    , m_before(tag->isCrease(a, b))
    , m_after(crease)
{
}

void creaseNormalCommand::apply(Direction direction)
{
    m_tag->setCrease(m_a, m_b, direction == Direction::Redo ? m_after : m_before);
    mesh()->markDirty(KMMeshDirty::All);
}

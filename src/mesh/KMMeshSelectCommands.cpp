#include "mesh/KMMeshSelectCommands.h"

#include "mesh/KMMeshNode.h"

setSelectVertexCommand::setSelectVertexCommand(KMMeshNode *mesh, int index, bool selected)
    : KMMeshCommand(tr("Select Vertex"), mesh)
    , m_index(index)
    , m_before(mesh->vertex(index)->hasFlag(KMElementFlag::Selected))
    , m_after(selected)
{
}

void setSelectVertexCommand::apply(Direction direction)
{
    if (direction == Direction::Redo ? m_after : m_before)
        mesh()->setVertexFlag(m_index, KMElementFlag::Selected);
    else
        mesh()->clearVertexFlag(m_index, KMElementFlag::Selected);
}

setSelectFaceCommand::setSelectFaceCommand(KMMeshNode *mesh, int index, bool selected)
    : KMMeshCommand(tr("Select Face"), mesh)
    , m_index(index)
    , m_before(mesh->face(index)->hasFlag(KMElementFlag::Selected))
    , m_after(selected)
{
}

void setSelectFaceCommand::apply(Direction direction)
{
    if (direction == Direction::Redo ? m_after : m_before)
        mesh()->setFaceFlag(m_index, KMElementFlag::Selected);
    else
        mesh()->clearFaceFlag(m_index, KMElementFlag::Selected);
}

setSelectEdgeCommand::setSelectEdgeCommand(KMMeshNode *mesh, int a, int b, bool selected)
    : KMMeshCommand(tr("Select Edge"), mesh)
    , m_a(a)
    , m_b(b)
    , m_exists(mesh->findEdge(a, b))
    , m_before(edgeStateOf(*mesh, a, b).flags & KMElementFlag::Selected)
    , m_after(selected)
{
}

void setSelectEdgeCommand::apply(Direction direction)
{
    // The result of a modifier may have been made anew, with fewer vertices.
    if (!m_exists || !mesh()->vertex(m_a) || !mesh()->vertex(m_b))
        return;
    KMEdge *edge = mesh()->findOrAddEdge(m_a, m_b); // it may wait for a refresh to come back
    if (direction == Direction::Redo ? m_after : m_before)
        mesh()->setEdgeFlag(edge, KMElementFlag::Selected);
    else
        mesh()->clearEdgeFlag(edge, KMElementFlag::Selected);
}

setHideFaceCommand::setHideFaceCommand(KMMeshNode *mesh, int index, bool hidden)
    : KMMeshCommand(tr("Hide Face"), mesh)
    , m_index(index)
    , m_before(mesh->face(index)->hasFlag(KMElementFlag::Hidden))
    , m_after(hidden)
{
}

void setHideFaceCommand::apply(Direction direction)
{
    if (direction == Direction::Redo ? m_after : m_before)
        mesh()->setFaceFlag(m_index, KMElementFlag::Hidden);
    else
        mesh()->clearFaceFlag(m_index, KMElementFlag::Hidden);
    mesh()->markDirty(KMMeshDirty::All);
}

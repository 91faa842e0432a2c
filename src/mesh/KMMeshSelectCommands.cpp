#include "mesh/KMMeshSelectCommands.h"

#include "mesh/KMMeshNode.h"

setSelectVertexCommand::setSelectVertexCommand(KMMeshNode *mesh, int index, bool selected)
    : KMElementFlagCommand(tr("Select Vertex"), mesh, Element::Vertex, KMElementFlag::Selected, selected, index)
{
}

setSelectFaceCommand::setSelectFaceCommand(KMMeshNode *mesh, int index, bool selected)
    : KMElementFlagCommand(tr("Select Face"), mesh, Element::Face, KMElementFlag::Selected, selected, index)
{
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
    : KMElementFlagCommand(tr("Hide Face"), mesh, Element::Face, KMElementFlag::Hidden, hidden, index)
{
}

void setHideFaceCommand::apply(Direction direction)
{
    KMElementFlagCommand::apply(direction);
    mesh()->markDirty(KMMeshDirty::All);
}

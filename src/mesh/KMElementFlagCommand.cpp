#include "mesh/KMElementFlagCommand.h"

#include "mesh/KMMeshNode.h"

KMElementFlagCommand::KMElementFlagCommand(const QString &text, KMMeshNode *mesh, Element element, quint8 bit, bool on,
                                           int index, int corner)
    : KMMeshCommand(text, mesh)
    , m_index(index)
    , m_corner(quint8(corner))
    , m_element(element)
    , m_bit(bit)
    , m_before(flags() & bit)
    , m_after(on)
{
}

quint8 KMElementFlagCommand::flags() const
{
    switch (m_element) {
    case Element::Vertex:
        return mesh()->vertex(m_index)->flags;
    case Element::Face:
        return mesh()->face(m_index)->flags;
    case Element::Corner:
        return mesh()->face(m_index)->cornerFlags[m_corner];
    }
    return 0;
}

void KMElementFlagCommand::apply(Direction direction)
{
    const bool on = direction == Direction::Redo ? m_after : m_before;
    switch (m_element) {
    case Element::Vertex:
        return on ? mesh()->setVertexFlag(m_index, m_bit) : mesh()->clearVertexFlag(m_index, m_bit);
    case Element::Face:
        return on ? mesh()->setFaceFlag(m_index, m_bit) : mesh()->clearFaceFlag(m_index, m_bit);
    case Element::Corner:
        return on ? mesh()->setCornerFlag(m_index, m_corner, m_bit) : mesh()->clearCornerFlag(m_index, m_corner, m_bit);
    }
}

#pragma once

#include "mesh/KMMeshCommand.h"

/// Base of the commands that set a flag of one element or take it off.
class KMElementFlagCommand : public KMMeshCommand
{
protected:
    enum class Element : quint8 { Vertex, Face, Corner };

    /// The bit is one of KMElementFlag; only corners of faces ask for the corner.
    KMElementFlagCommand(const QString &text, KMMeshNode *mesh, Element element, quint8 bit, bool on, int index,
                         int corner = 0);
    void apply(Direction direction) override;

private:
    quint8 flags() const;

    int m_index;
    quint8 m_corner;
    Element m_element;
    quint8 m_bit;
    bool m_before;
    bool m_after;
};

#pragma once

#include "core/KMNode.h"

/// The end of a schematic wire that carries no value of its own.
class KMConnectionNode : public KMNode
{
    Q_OBJECT
public:
    explicit KMConnectionNode(KMNode *owner = nullptr);

    KMNode *owner() const { return m_owner; }
    void setOwner(KMNode *owner) { m_owner = owner; }

private:
    KMNode *m_owner; // not owned
};

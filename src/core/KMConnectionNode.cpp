#include "core/KMConnectionNode.h"

#include "core/KMNodeType.h"

KMConnectionNode::KMConnectionNode(KMNode *owner)
    : m_owner(owner)
{
    setType(KMNodeType::Connection);
}

#include "core/KMStringNode.h"

#include "core/KMNodeType.h"

KMStringNode::KMStringNode()
{
    setType(KMNodeType::String);
}

KMStringNode::KMStringNode(const QString &text)
    : KMStringNode()
{
    m_value = text;
}

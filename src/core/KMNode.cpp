#include "core/KMNode.h"

#include <QDebug>

KMNode::KMNode() = default;

KMNode::~KMNode() = default;

void KMNode::setType(int type)
{
    m_type = type;
}

int KMNode::type() const
{
    return m_type;
}

QDebug operator<<(QDebug debug, const KMNode &node)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "KMNode(" << node.type() << ")";
    return debug;
}

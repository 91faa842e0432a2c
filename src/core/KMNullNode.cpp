#include "core/KMNullNode.h"

#include "core/KMNodeType.h"

KMNullNode::KMNullNode()
{
    setType(KMNodeType::Null);
    setName(tr("Null"));
}

void KMNullNode::setTransform(const KMTransform &transform)
{
    m_transform = transform;
}

KMContainerNode *KMNullNode::clone() const
{
    if (type() != KMNodeType::Null)
        return nullptr; // a class of the null family that doesn't say how it is copied
    auto *copy = new KMNullNode;
    copyNullTo(copy);
    return copy;
}

void KMNullNode::copyNullTo(KMNullNode *destination) const
{
    destination->setName(name());
    destination->setVisible(isVisible());
    destination->setLocked(isLocked());
    destination->m_transform = m_transform;
    cloneTagsTo(destination);
}

#include "core/KMNullNode.h"

#include "core/KMNodeType.h"
#include "core/KMTreeWidget.h"

namespace {

/// The product of the transforms from a node up to the top.
kvm::Matrix4 matrixFrom(const KMContainerNode *node)
{
    kvm::Matrix4 world;
    for (; node; node = KMTreeWidget::parentNodeOf(node)) {
        if (!isNull(node->type()))
            continue;
        const KMTransform &local = static_cast<const KMNullNode *>(node)->transform();
        world *= kvm::Matrix4::fromScale(local.scale);
        world *= local.rotation;
        world += local.translation;
        if (standsInWorld(node->type()))
            break;
    }
    return world;
}

} // namespace

KMNullNode::KMNullNode()
{
    setType(KMNodeType::Null);
    setName(tr("Null"));
}

void KMNullNode::setTransform(const KMTransform &transform)
{
    m_transform = transform;
}

kvm::Matrix4 KMNullNode::worldMatrix() const
{
    return matrixFrom(this);
}

kvm::Matrix4 KMNullNode::parentMatrix() const
{
    return standsInWorld(type()) ? kvm::Matrix4() : matrixFrom(KMTreeWidget::parentNodeOf(this));
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

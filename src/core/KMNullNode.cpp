#include "core/KMNullNode.h"

#include "core/KMNodeType.h"
#include "core/KMTreeWidget.h"

namespace {

/// A rig goes with the nodes above by steps of its own, and its transform is its plane of symmetry in the world: it is
/// no frame for what stands below.
bool isRig(int type)
{
    return type == KMNodeType::BoneContainer;
}

void append(kvm::Matrix4 &world, const KMTransform &local)
{
    world *= kvm::Matrix4::fromScale(local.scale);
    world *= local.rotation;
    world += local.translation;
}

/// The product of the transforms from a node up to the top.
kvm::Matrix4 matrixFrom(const KMContainerNode *node)
{
    kvm::Matrix4 world;
    for (; node; node = KMTreeWidget::parentNodeOf(node)) {
        if (!isNull(node->type()) || isRig(node->type()))
            continue;
        append(world, static_cast<const KMNullNode *>(node)->transform());
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
    if (!isRig(type()))
        return matrixFrom(this);
    kvm::Matrix4 world;
    append(world, m_transform);
    return world;
}

kvm::Matrix4 KMNullNode::parentMatrix() const
{
    const bool isInWorld = standsInWorld(type()) || isRig(type());
    return isInWorld ? kvm::Matrix4() : matrixFrom(KMTreeWidget::parentNodeOf(this));
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

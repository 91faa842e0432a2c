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

/// The product of the transforms from a node up to the top.
kvm::Matrix4 matrixFrom(const KMContainerNode *start)
{
    kvm::Matrix4 world;
    for (const KMContainerNode *node = start; node; node = KMTreeWidget::parentNodeOf(node)) {
        if (!isNull(node->type()) || (node != start && isRig(node->type())))
            continue;
        const KMTransform &local = static_cast<const KMNullNode *>(node)->transform();
        world *= kvm::Matrix4::fromScale(local.scale);
        world *= local.rotation;
        world += local.translation;
        if (standsInWorld(node->type()) || isRig(node->type()))
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
    if (standsInWorld(type()) || isRig(type()))
        return {};
    const KMContainerNode *parent = KMTreeWidget::parentNodeOf(this);
    return matrixFrom(parent && isRig(parent->type()) ? KMTreeWidget::parentNodeOf(parent) : parent);
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

#include "core/KMVariantNode.h"

#include "core/KMContainerNode.h"
#include "core/KMNodeType.h"

KMVariantNode::KMVariantNode(KMContainerNode *owner)
    : m_owner(owner)
{
    setType(KMNodeType::Variant);
}

void KMVariantNode::setBool(bool value)
{
    setValue(value);
}

void KMVariantNode::setInt(int value)
{
    setValue(value);
}

void KMVariantNode::setFloat(float value)
{
    setValue(value);
}

void KMVariantNode::setValue(const QVariant &value)
{
    m_value = value;
    if (m_blocked)
        return;
    propagate();
    // Owners rebuild on the refresh of their own parameters, connected or not.
    emit refresh(m_owner);
}

void KMVariantNode::addTarget(KMVariantNode *target)
{
    m_targets.append(target);
    propagate();
}

void KMVariantNode::removeTarget(KMVariantNode *target)
{
    m_targets.removeOne(target);
}

void KMVariantNode::propagate()
{
    Path path;
    propagateAlong(path);
}

/// The path holds the nodes from where the change started to the one above this; it is handed on because a slot of
/// refresh() may set values too, which is a change with a path of its own.
void KMVariantNode::propagateAlong(Path &path)
{
    path.append(this);
    const QList<KMVariantNode *> targets = m_targets; // a slot of refresh() may connect or disconnect
    for (KMVariantNode *target : targets) {
        target->m_value = m_value;
        if (!path.contains(target))
            target->propagateAlong(path);
        emit target->refresh(target->m_owner);
    }
    path.removeLast();
}

KMBoolNode::KMBoolNode(KMContainerNode *owner)
    : KMVariantNode(owner)
{
    setType(KMNodeType::Bool);
    setInitialValue(false);
}

KMIntNode::KMIntNode(KMContainerNode *owner)
    : KMVariantNode(owner)
{
    setType(KMNodeType::Int);
    setInitialValue(0);
}

KMFloatNode::KMFloatNode(KMContainerNode *owner)
    : KMVariantNode(owner)
{
    setType(KMNodeType::Float);
    setInitialValue(0.0f);
}

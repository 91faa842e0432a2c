#include "rig/KMRigTags.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMTagJoint.h"

#include <QHash>

namespace {

template <class Tag>
QList<Tag *> liveTags(const KMBoneContainer *container, int type)
{
    QList<Tag *> found;
    for (const KMBone *bone : container ? container->bones() : QList<KMBone *>()) {
        for (KMTagBase *tag : bone->tags()) {
            if (tag->type() == type && !tag->isDeleted())
                found << static_cast<Tag *>(tag);
        }
    }
    return found;
}

} // namespace

QList<KMTagRigidBody *> KMRigTags::bodies(const KMBoneContainer *container)
{
    return liveTags<KMTagRigidBody>(container, KMNodeType::TagRigidBody);
}

QList<KMTagJoint *> KMRigTags::joints(const KMBoneContainer *container)
{
    return liveTags<KMTagJoint>(container, KMNodeType::TagJoint);
}

QList<KMTagRigidBody *> KMRigTags::bodiesBeside(const KMBone *bone)
{
    return bodies(bone ? bone->container() : nullptr);
}

void KMRigTags::relinkCopies(const Copies &copies)
{
    QHash<KMTagRigidBody *, KMTagRigidBody *> copyOf;
    for (const auto &[source, copy] : copies) {
        if (source->type() == KMNodeType::TagRigidBody)
            copyOf.insert(nodeAs<KMTagRigidBody>(source), nodeAs<KMTagRigidBody>(copy));
    }
    for (const auto &[source, copy] : copies) {
        if (source->type() != KMNodeType::TagJoint)
            continue;
        auto *joint = nodeAs<KMTagJoint>(copy);
        joint->linkBodies(copyOf.value(joint->bodyA(), joint->bodyA()), copyOf.value(joint->bodyB(), joint->bodyB()));
    }
}

const KMContainerNode *KMRigTags::lockOf(const KMNode *owner)
{
    if (!owner || owner->type() != KMNodeType::Bone)
        return nullptr;
    const auto *bone = static_cast<const KMBone *>(owner);
    if (bone->isLocked())
        return bone;
    return bone->container() && bone->container()->isLocked() ? bone->container() : nullptr;
}

KMBoneContainer *KMRigTags::currentRig()
{
    KMNode *node = gSolution->currentNode();
    KMBoneContainer *rig = nullptr;
    if (node && node->type() == KMNodeType::BoneContainer)
        rig = nodeAs<KMBoneContainer>(node);
    else if (KMNode *bone = gSolution->currentBone())
        rig = nodeAs<KMBone>(bone)->container();
    return rig && !rig->isDeleted() ? rig : nullptr;
}

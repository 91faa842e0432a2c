#include "rig/KMRigTags.h"

#include "core/KMNodeType.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMTagJoint.h"

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

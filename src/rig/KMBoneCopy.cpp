#include "rig/KMBoneCopy.h"

#include "core/KMNodeType.h"
#include "rig/KMBone.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagJoint.h"

#include <QHash>

namespace {

/// The copy has the live tags alone, in their order.
void noteBodies(const KMBone &source, const KMBone &copy, QHash<KMTagRigidBody *, KMTagRigidBody *> *copyOf)
{
    int index = 0;
    for (KMTagBase *tag : source.tags()) {
        if (tag->isDeleted())
            continue;
        if (tag->type() == KMNodeType::TagRigidBody)
            copyOf->insert(nodeAs<KMTagRigidBody>(tag), nodeAs<KMTagRigidBody>(copy.tag(index)));
        ++index;
    }
}

} // namespace

namespace KMBoneCopy {

QList<Placed> copies(const QList<KMBone *> &bones)
{
    QHash<KMBone *, KMBone *> copyOf;
    QList<Placed> placed;
    for (KMBone *bone : bones) {
        KMBone *copy = bone->clone(true);
        copy->setMovable(bone->isMovable());
        copy->setEnName(bone->enName());
        copyOf.insert(bone, copy);
        placed.append({bone, copy, copyOf.value(bone->parentBone())});
    }
    QHash<KMTagRigidBody *, KMTagRigidBody *> copyOfBody;
    for (auto it = copyOf.cbegin(); it != copyOf.cend(); ++it)
        noteBodies(*it.key(), *it.value(), &copyOfBody);
    for (const Placed &entry : std::as_const(placed)) {
        for (KMTagBase *tag : entry.copy->tags()) {
            if (tag->type() == KMNodeType::TagConstraint) {
                auto *constraint = nodeAs<KMTagConstraint>(tag);
                KMBone *target = constraint->data().target;
                constraint->setTarget(copyOf.value(target, target));
            } else if (tag->type() == KMNodeType::TagJoint) {
                auto *joint = nodeAs<KMTagJoint>(tag);
                joint->linkBodies(copyOfBody.value(joint->bodyA(), joint->bodyA()),
                                  copyOfBody.value(joint->bodyB(), joint->bodyB()));
            }
        }
    }
    return placed;
}

} // namespace KMBoneCopy

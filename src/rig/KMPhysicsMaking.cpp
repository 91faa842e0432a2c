#include "rig/KMPhysicsMaking.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMPlayerAxes.h"
#include "rig/KMTagJoint.h"

#include <QHash>

namespace {

struct Size
{
    float width, height, depth;
};

Size sizeFor(int shape, float length)
{
    if (shape == KMTagRigidBody::Box)
        return {length / 2.0f, length, length / 2.0f};
    if (shape == KMTagRigidBody::Capsule)
        return {0.75f * length, 2.0f * length, 1.0f};
    return {length, 1.0f, 1.0f};
}

KMTagRigidBody *makeBody(const KMBone &bone, int shape)
{
    const float length = (bone.restTail() - bone.restHead()).length();
    const Size size = sizeFor(shape, length);
    RigidBodyData data;
    data.shape = shape;
    data.width = size.width;
    data.height = size.height;
    data.depth = size.depth;
    data.pose.offset = {0.0f, 0.0f, -length / 2.0f};
    auto *body = new KMTagRigidBody;
    body->setName(bone.name());
    body->setParameters(data);
    return body;
}

void pushTag(KMBone *bone, KMTagBase *tag)
{
    gSolution->push(new addTagBoneContainerCommand(bone, tag, -1, addTagCommand::Name::Keep));
}

} // namespace

KMTagRigidBody *KMPhysicsMaking::firstBody(const KMBone *bone)
{
    for (int i = 0; bone && i < bone->tagCount(); ++i) {
        if (bone->tag(i)->type() == KMNodeType::TagRigidBody && !bone->tag(i)->isDeleted())
            return nodeAs<KMTagRigidBody>(bone->tag(i));
    }
    return nullptr;
}

void KMPhysicsMaking::pushBodies(const QList<KMBone *> &bones, int shape, bool withJoints)
{
    QHash<const KMBone *, KMTagRigidBody *> made;
    for (KMBone *bone : bones) {
        KMTagRigidBody *body = makeBody(*bone, shape);
        made.insert(bone, body);
        pushTag(bone, body);
    }
    if (!withJoints)
        return;
    for (KMBone *bone : bones) {
        const KMBone *parent = bone->parentBone();
        auto *joint = new KMTagJoint;
        joint->setName(bone->name());
        joint->linkBodies(made.contains(parent) ? made.value(parent) : firstBody(parent), made.value(bone));
        pushTag(bone, joint);
    }
}

void KMPhysicsMaking::pushSideJoint(KMTagRigidBody *a, KMTagRigidBody *b)
{
    KMBone *owner = a->bone();
    const KMBone *other = b->bone();
    const kvm::Vector3 middle = (owner->restHead() + owner->restTail() + other->restHead() + other->restTail()) * 0.25f;
    const kvm::Quaternion back = owner->rotation().conjugate();
    // One rotation has two quaternions: between those of one side lies the middle.
    const bool isNear = dot(owner->rotation(), other->rotation()) >= 0.0f;
    const kvm::Quaternion end = isNear ? other->rotation() : -other->rotation();
    PoseTransform pose;
    pose.offset = back.rotate(middle - owner->restHead());
    pose.rotation = back * (owner->rotation().slerped(end, 0.5f) * KMPlayerAxes);
    auto *joint = new KMTagJoint;
    joint->linkBodies(a, b);
    joint->setPose(pose);
    gSolution->push(new addTagBoneContainerCommand(owner, joint));
}

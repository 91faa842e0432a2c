#include "rig/KMTagConstraint.h"

#include "core/KMNodeType.h"
#include "rig/KMBone.h"

#include <algorithm>

namespace {

constexpr float reached = 1e-6f; // distance from the goal

/// The highest value goes first, so that it gives way where a limit's values are the wrong way round.
kvm::Quaternion limited(const kvm::Quaternion &rotation, const BoneLimit &limits)
{
    kvm::Vector3 angles = rotation.toEuler();
    angles.x = std::max(std::min(angles.x, limits.maxH), limits.minH);
    angles.y = std::max(std::min(angles.y, limits.maxP), limits.minP);
    angles.z = std::max(std::min(angles.z, limits.maxB), limits.minB);
    return kvm::Quaternion::fromEuler(angles);
}

kvm::Vector3 headOf(const IkLink &link)
{
    return link.world.translation();
}

kvm::Vector3 tailOf(const IkLink &link)
{
    return link.world * (link.restTail - link.restHead);
}

} // namespace

bool operator==(const ConstraintData &a, const ConstraintData &b)
{
    return a.target == b.target && a.value == b.value && a.loop == b.loop && a.type == b.type && a.ikDepth == b.ikDepth;
}

bool operator!=(const ConstraintData &a, const ConstraintData &b)
{
    return !(a == b);
}

KMTagConstraint::KMTagConstraint()
{
    setType(KMNodeType::TagConstraint);
    setName(tr("Constraint"));
}

KMTagConstraint *KMTagConstraint::clone() const
{
    auto *copy = new KMTagConstraint;
    copy->setName(name());
    copy->setData(m_data);
    return copy;
}

void KMTagConstraint::collectLinks()
{
    m_links.clear();
    KMBone *bone = m_data.target->parentBone();
    for (int left = m_data.ikDepth; left > 0 && bone; --left, bone = bone->parentBone())
        m_links.append({bone, bone->keyPose().rotation, bone->restHead(), bone->restTail(), bone->worldMatrix()});
}

void KMTagConstraint::solveIK()
{
    m_links.clear();
    if (!m_data.target || m_data.target->isDeleted() || !owner() || owner()->type() != KMNodeType::Bone)
        return;
    collectLinks();
    const kvm::Vector3 goal = nodeAs<KMBone>(owner())->head();
    for (int i = 0; i < m_links.size(); ++i) {
        const kvm::Vector3 effector = tailOf(m_links.first());
        if ((effector - goal).length() < reached)
            break;
        turn(m_links[i], effector, goal);
        recomputeLinks();
        if (!m_links[i].bone->parentBone() || m_links[i].bone->isFloating())
            break;
    }
    for (const IkLink &link : std::as_const(m_links))
        link.bone->setPoseWorld(link.bone->constraintPose());
}

void KMTagConstraint::turn(IkLink &joint, const kvm::Vector3 &effector, const kvm::Vector3 &goal)
{
    kvm::Vector3 from = effector - headOf(joint);
    kvm::Vector3 to = goal - headOf(joint);
    if (const KMBone *parent = joint.bone->parentBone()) {
        const kvm::Quaternion back = parent->poseWorld().rotation.conjugate();
        from = back.rotate(from);
        to = back.rotate(to);
    }
    PoseTransform pose = joint.bone->constraintPose();
    // Short directions have no axis that can be told from none, and opposite ones have none at all.
    const kvm::Quaternion nearer = kvm::Quaternion::rotationTo(from.normalized(), to.normalized());
    if (nearer.lengthSquared() < 0.5f)
        return;
    pose.rotation = nearer * pose.rotation;
    if (joint.bone->limits().enabled)
        pose.rotation = limited(pose.rotation, joint.bone->limits());
    joint.bone->setConstraintPose(pose);
}

/// From the top of the chain down: each stands on the one above it.
void KMTagConstraint::recomputeLinks()
{
    for (int i = m_links.size() - 1; i >= 0; --i) {
        IkLink &link = m_links[i];
        const PoseTransform &pose = link.bone->constraintPose();
        const KMBone *parent = link.bone->parentBone();
        if (!parent) {
            link.world = pose.rotation.toMatrix() * kvm::Matrix4::fromTranslation(link.restHead + pose.offset);
            continue;
        }
        const kvm::Matrix4 above = i + 1 < m_links.size() ? m_links[i + 1].world : parent->worldMatrix();
        const kvm::Vector3 offset = link.bone->isMovable() ? pose.offset : kvm::Vector3();
        link.world = pose.rotation.toMatrix()
                     * kvm::Matrix4::fromTranslation(link.restHead - parent->restHead() + offset) * above;
    }
}

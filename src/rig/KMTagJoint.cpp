#include "rig/KMTagJoint.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMGizmoShape.h"

namespace {

/// As large as the ring at the head of a bone is wide: joints of fingers don't hide each other.
constexpr float gizmoSize = 2.0f;

} // namespace

bool operator==(const JointData &a, const JointData &b)
{
    return a.bodyA == b.bodyA && a.bodyB == b.bodyB && a.pose == b.pose && a.linearLimit == b.linearLimit
           && a.angularLimit == b.angularLimit && a.linearSpring == b.linearSpring
           && a.angularSpring == b.angularSpring;
}

bool operator!=(const JointData &a, const JointData &b)
{
    return !(a == b);
}

KMTagJoint::KMTagJoint()
{
    setType(KMNodeType::TagJoint);
    setName(tr("Joint"));
}

KMTagJoint::~KMTagJoint() = default;

void KMTagJoint::setParameters(const JointData &data)
{
    m_data = data;
    updateGizmo();
}

void KMTagJoint::linkBodies(KMTagRigidBody *a, KMTagRigidBody *b)
{
    m_data.bodyA = a;
    m_data.bodyB = b;
}

void KMTagJoint::setPose(const PoseTransform &pose)
{
    m_data.pose = pose;
    updateGizmo();
}

KMBone *KMTagJoint::bone() const
{
    return owner() && owner()->type() == KMNodeType::Bone ? nodeAs<KMBone>(owner()) : nullptr;
}

kvm::Matrix4 KMTagJoint::worldMatrix() const
{
    return KMTagRigidBody::placeOn(bone(), m_data.pose);
}

KMMeshNode *KMTagJoint::gizmo() const
{
    if (!m_gizmo)
        m_gizmo = std::make_unique<KMMeshNode>();
    if (m_gizmoStale)
        KMGizmoShape::show(*m_gizmo, KMGizmoShape::axesCube(gizmoSize), worldMatrix());
    m_gizmoStale = false;
    return m_gizmo.get();
}

void KMTagJoint::setOwner(KMNode *owner)
{
    KMTagBase::setOwner(owner);
    updateGizmo();
}

KMTagJoint *KMTagJoint::clone() const
{
    auto *copy = new KMTagJoint;
    copy->setName(name());
    copy->setParameters(m_data);
    return copy;
}

void KMJointSide::restore() const
{
    if (joint)
        joint->linkBodies(isA ? body.data() : joint->bodyA(), isA ? joint->bodyB() : body.data());
}

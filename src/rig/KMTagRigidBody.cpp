#include "rig/KMTagRigidBody.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMGizmoShape.h"

#include <tuple>

namespace {

auto numbersOf(const RigidBodyData &data)
{
    return std::tie(data.shape, data.rigidType, data.width, data.height, data.depth, data.linearDamping,
                    data.angularDamping, data.friction, data.restitution, data.mass, data.enabled, data.collisionMask,
                    data.group);
}

KMGizmoShape::Wire wireOf(const RigidBodyData &data)
{
    if (data.shape == KMTagRigidBody::Box)
        return KMGizmoShape::box({data.width, data.depth, data.height});
    if (data.shape == KMTagRigidBody::Capsule)
        return KMGizmoShape::capsule(data.width, data.height / 2.0f);
    return KMGizmoShape::sphere(data.width);
}

} // namespace

bool operator==(const RigidBodyData &a, const RigidBodyData &b)
{
    return numbersOf(a) == numbersOf(b) && a.pose == b.pose;
}

bool operator!=(const RigidBodyData &a, const RigidBodyData &b)
{
    return !(a == b);
}

KMTagRigidBody::KMTagRigidBody()
{
    setType(KMNodeType::TagRigidBody);
    setName(tr("RigidBody"));
}

KMTagRigidBody::~KMTagRigidBody() = default;

void KMTagRigidBody::setParameters(const RigidBodyData &data)
{
    m_data = data;
    updateGizmo();
}

QStringList KMTagRigidBody::shapeNames()
{
    return {tr("Sphere"), tr("Box"), tr("Capsule")};
}

QStringList KMTagRigidBody::kindNames()
{
    return {tr("Kinematic"), tr("Physics"), tr("PhysFix")};
}

KMBone *KMTagRigidBody::bone() const
{
    return owner() && owner()->type() == KMNodeType::Bone ? nodeAs<KMBone>(owner()) : nullptr;
}

kvm::Matrix4 KMTagRigidBody::placeOn(const KMBone *bone, const PoseTransform &pose)
{
    const kvm::Matrix4 place = pose.rotation.toMatrix() * kvm::Matrix4::fromTranslation(pose.offset);
    if (!bone)
        return place;
    return place * bone->rotation().toMatrix() * kvm::Matrix4::fromTranslation(bone->translation());
}

kvm::Matrix4 KMTagRigidBody::worldMatrix() const
{
    return placeOn(bone(), m_data.pose);
}

KMMeshNode *KMTagRigidBody::gizmo() const
{
    if (!m_gizmo)
        m_gizmo = std::make_unique<KMMeshNode>();
    if (m_gizmoStale)
        KMGizmoShape::show(*m_gizmo, wireOf(m_data), worldMatrix());
    m_gizmoStale = false;
    return m_gizmo.get();
}

void KMTagRigidBody::setOwner(KMNode *owner)
{
    KMTagBase::setOwner(owner);
    updateGizmo();
}

KMTagRigidBody *KMTagRigidBody::clone() const
{
    auto *copy = new KMTagRigidBody;
    copy->setName(name());
    copy->setParameters(m_data);
    return copy;
}

// Rigid bodies and joints, which a file places in the world and the document on bones.

#include "formats/PmxPhysics.h"
#include "formats/PmxRigBuilder.h"
#include "rig/KMBone.h"
#include "rig/KMPlayerAxes.h"
#include "rig/KMTagJoint.h"

#include <QDebug>

#include <array>

namespace {

/// The six limits in the order of the file.
std::array<float, 6> inOrder(const kvm::Vector3 &lowest, const kvm::Vector3 &highest)
{
    return {lowest.x, lowest.y, lowest.z, highest.x, highest.y, highest.z};
}

JointData::Limits linearLimits(const PmxFile::Joint &record)
{
    JointData::Limits limits{};
    const std::array<float, 6> lengths = inOrder(record.linearMin, record.linearMax);
    for (size_t i = 0; i < lengths.size(); ++i)
        limits[size_t(Pmx::ReadLinearLimits[i])] = lengths[i];
    return limits;
}

} // namespace

JointData::Limits PmxRigBuilder::angularLimits(const PmxFile::Joint &record) const
{
    JointData::Limits limits{};
    const std::array<float, 6> radians = inOrder(record.angularMin, record.angularMax);
    for (size_t i = 0; i < radians.size(); ++i) {
        const Pmx::LimitPlace &limit = Pmx::AngularLimits[i];
        limits[size_t(limit.place)] = inDegrees(radians[i], double(limit.sign));
    }
    return limits;
}

/// On writing the rotation becomes that of the bone times that of the tag times the reverse of the quarter turn.
PoseTransform PmxRigBuilder::poseOn(const KMBone &bone, const kvm::Vector3 &position,
                                    const kvm::Vector3 &rotation) const
{
    const kvm::Quaternion back = bone.rotation().conjugate();
    PoseTransform pose;
    pose.rotation = back * kvm::Quaternion::fromEuler(rotation) * KMPlayerAxes;
    pose.offset = m_scale.finite(back.rotate(m_scale(position) - bone.restHead()));
    return pose;
}

void PmxRigBuilder::addBodies()
{
    for (const PmxFile::Body &record : m_file.bodies) {
        KMBone *owner = bone(record.bone);
        m_bodies << (owner ? makeBody(record, *owner) : nullptr);
        if (owner)
            owner->addTagKeepName(m_bodies.last());
    }
    if (m_bodies.contains(nullptr))
        qDebug() << "rigid bodies without a bone, left out:" << m_bodies.count(nullptr);
}

KMTagRigidBody *PmxRigBuilder::makeBody(const PmxFile::Body &record, const KMBone &bone)
{
    const kvm::Vector3 size = m_scale(record.size * 2.0f);
    RigidBodyData data;
    data.shape = kind(tr("shape"), record.shape, KMTagRigidBody::Capsule + 1, record);
    data.rigidType = kind(tr("mode"), record.mode, KMTagRigidBody::PhysFix + 1, record);
    data.group = kind(tr("group"), record.group, KMTagRigidBody::GroupCount, record);
    data.collisionMask = quint16(~record.mask);
    data.width = size.x;
    data.height = size.y;
    data.depth = size.z;
    data.mass = record.mass;
    data.linearDamping = record.linearDamping;
    data.angularDamping = record.angularDamping;
    data.restitution = record.restitution;
    data.friction = record.friction;
    data.pose = poseOn(bone, record.position, record.rotation);
    auto *body = new KMTagRigidBody;
    body->setName(record.name.local);
    body->setParameters(data);
    return body;
}

/// One of so many kinds of what is named, else the first one.
int PmxRigBuilder::kind(const QString &what, int value, int count, const PmxFile::Body &record)
{
    if (value < count)
        return value;
    m_warnings << tr("The rigid body %1 (%2 of %3) has the unknown %4 %5")
                      .arg(record.name.brief())
                      .arg(m_bodies.size() + 1)
                      .arg(m_file.bodies.size())
                      .arg(what)
                      .arg(value);
    return 0;
}

/// A joint hangs on the bone of its second body, as those do that are made for a chain of bones, else on that of the
/// first.
void PmxRigBuilder::addJoints()
{
    int left = 0;
    for (const PmxFile::Joint &record : m_file.joints) {
        KMTagRigidBody *a = m_bodies.value(record.bodyA, nullptr);
        KMTagRigidBody *b = m_bodies.value(record.bodyB, nullptr);
        if (!a && !b) {
            ++left;
            continue;
        }
        KMBone *owner = (b ? b : a)->bone();
        JointData data;
        data.bodyA = a;
        data.bodyB = b;
        data.pose = poseOn(*owner, record.position, record.rotation);
        data.linearLimit = linearLimits(record);
        data.angularLimit = angularLimits(record);
        data.linearSpring = m_scale(Pmx::exchangedSpring(record.linearSpring));
        data.angularSpring = Pmx::exchangedSpring(record.angularSpring);
        auto *joint = new KMTagJoint;
        joint->setName(record.name.local);
        joint->setParameters(data);
        owner->addTagKeepName(joint);
    }
    if (left > 0)
        qDebug() << "joints without a body, left out:" << left;
}

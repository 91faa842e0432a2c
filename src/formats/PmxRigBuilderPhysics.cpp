// Rigid bodies and joints, which a file places in the world and the document on bones.

#include "formats/PmxRigBuilder.h"
#include "rig/KMBone.h"
#include "rig/KMTagJoint.h"

#include <QDebug>

namespace {

/// A quarter turn about X: the axes of a body in a player against those of a tag.
constexpr kvm::Quaternion playerAxes{0.7071067690849304f, -0.7071067690849304f, 0.0f, 0.0f};

JointData::Limits linearLimits(const PmxFile::Joint &record)
{
    const kvm::Vector3 &min = record.linearMin;
    const kvm::Vector3 &max = record.linearMax;
    return {min.x, max.x, min.y, max.y, min.z, max.z};
}

/// The file's second number belongs to what is Z on a tag.
kvm::Vector3 springOf(const kvm::Vector3 &inFile)
{
    return {inFile.x, inFile.z, inFile.y};
}

} // namespace

/// X and Y turn the other way round than in a file, so that their lowest angle becomes the highest one; the pair of Z
/// stands second and that of Y third.
JointData::Limits PmxRigBuilder::angularLimits(const PmxFile::Joint &record) const
{
    const kvm::Vector3 &min = record.angularMin;
    const kvm::Vector3 &max = record.angularMax;
    return {inDegrees(max.x, -1.0), inDegrees(min.x, -1.0), inDegrees(min.z),
            inDegrees(max.z),       inDegrees(max.y, -1.0), inDegrees(min.y, -1.0)};
}

/// On writing the rotation becomes that of the bone times that of the tag times the reverse of the quarter turn.
PoseTransform PmxRigBuilder::poseOn(const KMBone &bone, const kvm::Vector3 &position,
                                    const kvm::Vector3 &rotation) const
{
    const kvm::Quaternion back = bone.rotation().conjugate();
    PoseTransform pose;
    pose.rotation = back * kvm::Quaternion::fromEuler(rotation) * playerAxes;
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
        data.linearSpring = m_scale(springOf(record.linearSpring));
        data.angularSpring = springOf(record.angularSpring);
        auto *joint = new KMTagJoint;
        joint->setName(record.name.local);
        joint->setParameters(data);
        owner->addTagKeepName(joint);
    }
    if (left > 0)
        qDebug() << "joints without a body, left out:" << left;
}

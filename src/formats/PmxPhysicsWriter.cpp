#include "formats/PmxPhysicsWriter.h"

#include "formats/PmxContents.h"
#include "formats/PmxOutput.h"
#include "formats/PmxPhysics.h"
#include "formats/PmxSkin.h"
#include "math/EulerAngles.h"
#include "rig/KMBone.h"
#include "rig/KMPlayerAxes.h"
#include "rig/KMTagJoint.h"

#include <QDebug>
#include <QStringList>

#include <cmath>

using kvm::Vector3;

namespace {

float radians(float degrees)
{
    constexpr float perHalfTurn = 0.0055555557f;
    return float(double(degrees * perHalfTurn) * M_PI);
}

} // namespace

void PmxPhysicsWriter::write()
{
    m_out.writeI32(m_contents.bodies.size());
    for (const auto &body : m_contents.bodies)
        writeBody(*body.tag, *body.bone);
    m_out.writeI32(m_contents.joints.size());
    QStringList loose;
    for (const auto &joint : m_contents.joints) {
        writeJoint(*joint.tag, *joint.bone);
        if (m_contents.bodyIndex(joint.tag->bodyA()) < 0 || m_contents.bodyIndex(joint.tag->bodyB()) < 0)
            loose << joint.tag->name();
    }
    if (!loose.isEmpty())
        qDebug().noquote() << "joints without both bodies:" << loose.join(QStringLiteral(", "));
}

void PmxPhysicsWriter::writePlace(const PoseTransform &pose, const KMBone &bone)
{
    m_out.writeLength(bone.rotation().rotate(pose.offset) + bone.restHead());
    m_out.writeAngles(kvm::eulerAngles(bone.rotation() * pose.rotation * KMPlayerAxes.conjugate()));
}

void PmxPhysicsWriter::writeBody(const KMTagRigidBody &tag, const KMBone &bone)
{
    const RigidBodyData &data = tag.parameters();
    m_out.writeText(tag.name());
    m_out.writeText(QString());
    m_out.writeIndex(pmxBoneIndex(&bone, m_contents.root), m_contents.sizes.bone);
    m_out.writeU8(data.group);
    m_out.writeU16(int(~data.collisionMask & 0xffffu));
    m_out.writeU8(data.shape);
    for (const float extent : {data.width, data.height, data.depth})
        m_out.writeF32(extent / 2.0f * m_out.scale());
    writePlace(data.pose, bone);
    for (const float number : {data.mass, data.linearDamping, data.angularDamping, data.restitution, data.friction})
        m_out.writeF32(number);
    m_out.writeU8(data.rigidType);
}

void PmxPhysicsWriter::writeJoint(const KMTagJoint &tag, const KMBone &bone)
{
    const JointData &data = tag.parameters();
    m_out.writeText(tag.name());
    m_out.writeText(QString());
    m_out.writeU8(0);
    for (const KMTagRigidBody *body : {tag.bodyA(), tag.bodyB()})
        m_out.writeIndex(m_contents.bodyIndex(body), m_contents.sizes.rigid);
    writePlace(data.pose, bone);
    const auto length = [&data](int i) { return data.linearLimit[size_t(Pmx::WrittenLinearLimits[i])]; };
    m_out.writeLengthLimits({length(0), length(1), length(2)}, {length(3), length(4), length(5)});
    const auto angle = [&data](int i) {
        const Pmx::LimitPlace &limit = Pmx::AngularLimits[i];
        return limit.sign * radians(data.angularLimit[size_t(limit.place)]);
    };
    m_out.writeAngleLimits({angle(0), angle(1), angle(2)}, {angle(3), angle(4), angle(5)});
    m_out.writeVector(Pmx::exchangedSpring(data.linearSpring));
    m_out.writeVector(Pmx::exchangedSpring(data.angularSpring));
}

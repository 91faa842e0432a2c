#include "formats/PmxPhysicsWriter.h"

#include "formats/PmxContents.h"
#include "formats/PmxOutput.h"
#include "formats/PmxSkin.h"
#include "math/EulerAngles.h"
#include "rig/KMBone.h"
#include "rig/KMTagJoint.h"

#include <QHash>

#include <cmath>

using kvm::Quaternion;
using kvm::Vector3;

namespace {

/// From a frame whose Y runs along the body, which players have, to ours, where Z does.
constexpr Quaternion fromPlayer(0.7071067690849304f, -0.7071067690849304f, 0.0f, 0.0f);

/// A limit of the file: where it stands in a record of the document, and with which sign.
struct LimitPlace
{
    int place;
    float sign;
};

/// Lowest x, y, z, then highest x, y, z.
constexpr int linearPlaces[6] = {1, 4, 2, 0, 5, 3};
constexpr LimitPlace angularPlaces[6] = {{1, -1.0f}, {5, -1.0f}, {2, 1.0f}, {0, -1.0f}, {4, -1.0f}, {3, 1.0f}};

float radians(float degrees)
{
    constexpr float perHalfTurn = 0.0055555557f;
    return float(double(degrees * perHalfTurn) * M_PI);
}

Vector3 springOf(const Vector3 &spring)
{
    return {spring.x, spring.z, spring.y};
}

} // namespace

void PmxPhysicsWriter::write()
{
    m_out.writeI32(m_contents.bodies.size());
    for (const auto &body : m_contents.bodies)
        writeBody(*body.tag, *body.bone);
    m_out.writeI32(m_contents.joints.size());
    for (const auto &joint : m_contents.joints)
        writeJoint(*joint.tag, *joint.bone);
}

void PmxPhysicsWriter::writePlace(const PoseTransform &pose, const KMBone &bone)
{
    m_out.writeLength(bone.rotation().rotate(pose.offset) + bone.restHead());
    m_out.writeVector(kvm::eulerAngles(bone.rotation() * pose.rotation * fromPlayer.conjugate()));
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

/// The linear limits leave in another order than the one in which they come: players that were fed by this program
/// know them so.
void PmxPhysicsWriter::writeJoint(const KMTagJoint &tag, const KMBone &bone)
{
    const JointData &data = tag.parameters();
    m_out.writeText(tag.name());
    m_out.writeText(QString());
    m_out.writeU8(0);
    for (const KMTagRigidBody *body : {tag.bodyA(), tag.bodyB()})
        m_out.writeIndex(m_contents.bodyIndex(body), m_contents.sizes.rigid);
    writePlace(data.pose, bone);
    for (const int place : linearPlaces)
        m_out.writeF32(data.linearLimit[size_t(place)] * m_out.scale());
    for (const LimitPlace &limit : angularPlaces)
        m_out.writeF32(limit.sign * radians(data.angularLimit[size_t(limit.place)]));
    m_out.writeVector(springOf(data.linearSpring));
    m_out.writeVector(springOf(data.angularSpring));
}

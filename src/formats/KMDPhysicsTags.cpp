#include "formats/KMDPhysicsTags.h"

#include "core/KMNodeType.h"
#include "formats/KMDOutput.h"
#include "formats/KMDReadContext.h"
#include "math/EulerAngles.h"
#include "rig/KMTagJoint.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDPhysicsTags)
};

/// The numbers of a body in the order of the file.
constexpr float RigidBodyData::*bodyNumbers[] = {&RigidBodyData::width,          &RigidBodyData::height,
                                                 &RigidBodyData::depth,          &RigidBodyData::linearDamping,
                                                 &RigidBodyData::angularDamping, &RigidBodyData::friction,
                                                 &RigidBodyData::restitution,    &RigidBodyData::mass};
constexpr float RigidBodyData::*lengths[] = {&RigidBodyData::width, &RigidBodyData::height, &RigidBodyData::depth};

bool isBefore(const kvm::Vector3 &a, const kvm::Vector3 &b)
{
    return std::tie(a.x, a.y, a.z) < std::tie(b.x, b.y, b.z);
}

/// Angles that come out again when what is read from them is written: a file that was only read and saved stays as it
/// is. Rounding leads on to a few triples that follow one another for ever, of which the first in order stands for all.
kvm::Vector3 settledAngles(const kvm::Quaternion &rotation)
{
    constexpr int mostTurns = 1024;
    QVector<kvm::Vector3> seen{kvm::eulerAngles(rotation)};
    while (seen.size() < mostTurns) {
        const kvm::Vector3 next = kvm::eulerAngles(kvm::Quaternion::fromEuler(seen.last()));
        const int start = seen.indexOf(next);
        if (start >= 0)
            return *std::min_element(seen.begin() + start, seen.end(), &isBefore);
        seen << next;
    }
    return seen.last();
}

void writePose(KMDOutput &out, const PoseTransform &pose)
{
    out.writeVector3(pose.scale);
    out.writeVector3(settledAngles(pose.rotation));
    out.writeVector3(pose.offset);
}

PoseTransform readPose(KMDReadContext &context)
{
    PoseTransform pose;
    pose.scale = context.in.readVector3({1.0f, 1.0f, 1.0f});
    pose.rotation = kvm::Quaternion::fromEuler(context.in.readVector3());
    pose.offset = context.readPosition();
    return pose;
}

/// One of so many kinds, else the first one.
int readKind(KMDStream &in, int count, const KMTagBase &tag)
{
    const int kind = in.readI32();
    if (kind >= 0 && kind < count)
        return kind;
    in.warn(Texts::tr("The rigid body %1 has the unknown kind %2").arg(tag.name()).arg(kind));
    return 0;
}

void scaleLengths(KMDReadContext &context, RigidBodyData &data, const KMTagBase &tag)
{
    for (float RigidBodyData::*length : lengths) {
        const float scaled = data.*length * context.importScale;
        if (std::isfinite(scaled))
            data.*length = scaled;
        else
            context.in.warn(Texts::tr("The scale makes the rigid body %1 endless; it keeps its size").arg(tag.name()));
    }
}

KMTagRigidBody *bodyOf(const KMDReadContext &context, quint64 id)
{
    KMNode *node = id ? context.objects.value(id) : nullptr;
    return node && node->type() == KMNodeType::TagRigidBody ? nodeAs<KMTagRigidBody>(node) : nullptr;
}

const KMTagBase *liveOf(const KMTagRigidBody *body)
{
    return body && !body->isDeleted() ? body : nullptr;
}

} // namespace

KMTagBase *KMDPhysicsTags::makeBody()
{
    return new KMTagRigidBody;
}

void KMDPhysicsTags::writeBody(KMDOutput &out, const KMTagBase *tag)
{
    const RigidBodyData &data = static_cast<const KMTagRigidBody *>(tag)->parameters();
    out.writeId(tag);
    out.writeI32(data.group);
    out.writeI32(qint32(data.collisionMask));
    for (float RigidBodyData::*number : bodyNumbers)
        out.writeF32(data.*number);
    out.writeBool(data.enabled);
    out.writeU32(quint32(data.shape));
    out.writeU32(quint32(data.rigidType));
    writePose(out, data.pose);
}

void KMDPhysicsTags::readBody(KMDReadContext &context, KMTagBase *tag)
{
    KMDStream &in = context.in;
    RigidBodyData data;
    const quint64 id = in.readU64();
    data.group = readKind(in, KMTagRigidBody::GroupCount, *tag);
    data.collisionMask = quint32(in.readI32());
    for (float RigidBodyData::*number : bodyNumbers)
        data.*number = in.readF32(data.*number);
    scaleLengths(context, data, *tag);
    data.enabled = in.readBool();
    data.shape = readKind(in, KMTagRigidBody::Capsule + 1, *tag);
    data.rigidType = readKind(in, KMTagRigidBody::PhysFix + 1, *tag);
    data.pose = readPose(context);
    if (!in.ok())
        return;
    static_cast<KMTagRigidBody *>(tag)->setParameters(data);
    context.objects.insert(id, tag);
}

KMTagBase *KMDPhysicsTags::makeJoint()
{
    return new KMTagJoint;
}

void KMDPhysicsTags::writeJoint(KMDOutput &out, const KMTagBase *tag)
{
    const JointData &data = static_cast<const KMTagJoint *>(tag)->parameters();
    out.writeId(tag);
    out.writeId(liveOf(data.bodyA));
    out.writeId(liveOf(data.bodyB));
    for (const JointData::Limits &limits : {data.linearLimit, data.angularLimit}) {
        for (const float limit : limits)
            out.writeF32(limit);
    }
    writePose(out, data.pose);
    out.writeVector3(data.linearSpring);
    out.writeVector3(data.angularSpring);
}

void KMDPhysicsTags::readJoint(KMDReadContext &context, KMTagBase *tag)
{
    KMDStream &in = context.in;
    JointData data;
    context.objects.insert(in.readU64(), tag);
    const quint64 a = in.readU64();
    const quint64 b = in.readU64();
    in.readFloats(data.linearLimit.data(), int(data.linearLimit.size()));
    in.readFloats(data.angularLimit.data(), int(data.angularLimit.size()));
    data.pose = readPose(context);
    data.linearSpring = in.readVector3();
    data.angularSpring = in.readVector3();
    auto *joint = static_cast<KMTagJoint *>(tag);
    joint->setParameters(data);
    const QPointer<KMTagJoint> kept(joint); // it goes with a bone that is left out
    context.bindings.emplace_back([&context, kept, a, b] {
        if (kept)
            kept->linkBodies(bodyOf(context, a), bodyOf(context, b));
    });
}

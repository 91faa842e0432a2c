#include "KMSamplePhysics.h"

#include "KMSampleClothes.h"
#include "KMSampleHair.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMPhysicsMaking.h"

namespace {

enum Group { BodyGroup, HairGroup, SkirtGroup };

/// A body that follows its bone: hair and skirt lie on these.
struct FixedRow
{
    const char *bone;
    int shape;
    float radius;
    float from, to; ///< along the bone, as parts of its length
};

constexpr FixedRow fixedRows[] = {
    {"head", KMTagRigidBody::Sphere, 10.0f, 0.58f, 0.58f},
    {"upper body2", KMTagRigidBody::Capsule, 8.0f, 0.2f, 0.75f},
    {"upper body", KMTagRigidBody::Capsule, 7.0f, 0.1f, 0.9f},
    {"lower body", KMTagRigidBody::Sphere, 9.5f, 0.7f, 0.7f},
    {"shoulder_L", KMTagRigidBody::Capsule, 4.0f, 0.2f, 1.0f},
    {"shoulder_R", KMTagRigidBody::Capsule, 4.0f, 0.2f, 1.0f},
    {"arm_L", KMTagRigidBody::Capsule, 3.8f, 0.1f, 1.0f},
    {"arm_R", KMTagRigidBody::Capsule, 3.8f, 0.1f, 1.0f},
    {"leg_L", KMTagRigidBody::Capsule, 6.0f, 0.1f, 0.95f},
    {"leg_R", KMTagRigidBody::Capsule, 6.0f, 0.1f, 0.95f},
};

/// How loosely a kind of chain hangs.
struct Softness
{
    Group group;
    quint32 passes; ///< groups that it goes through
    float radius;
    float mass;
    float damping;
    float swing; ///< degrees to either side
    float twist;
};

constexpr Softness hair{HairGroup, 1u << HairGroup | 1u << SkirtGroup, 1.4f, 0.5f, 0.95f, 22.0f, 6.0f};
constexpr Softness skirt{SkirtGroup, 1u << SkirtGroup | 1u << HairGroup, 1.8f, 0.4f, 0.97f, 16.0f, 4.0f};

class Maker
{
public:
    explicit Maker(KMBoneContainer *rig)
        : m_rig(rig)
    {
    }

    void addFixed(const FixedRow &row) const;
    void addChain(const QVector<QByteArray> &names, const Softness &softness) const;
    void addSideJoint(const QByteArray &a, const QByteArray &b, const Softness &softness) const;

private:
    KMBone *bone(const QByteArray &name) const { return m_rig->bone(QString::fromLatin1(name)); }
    static void push(KMBone *bone, KMTagBase *tag)
    {
        tag->setName(bone->name());
        gSolution->push(new addTagBoneContainerCommand(bone, tag, -1, addTagCommand::Name::Keep));
    }
    static JointData jointOf(KMTagRigidBody *a, KMTagRigidBody *b, const Softness &softness)
    {
        JointData data;
        data.bodyA = a;
        data.bodyB = b;
        data.angularLimit = {-softness.swing, softness.swing,  -softness.swing,
                             softness.swing,  -softness.twist, softness.twist};
        return data;
    }

    KMBoneContainer *m_rig;
};

float lengthOf(const KMBone *bone)
{
    return (bone->restTail() - bone->restHead()).length();
}

/// Of a sphere or a capsule with so long a straight part: the document has diameters, and twice that part.
void setRound(RigidBodyData &data, float radius, float straight)
{
    data.width = 2.0f * radius;
    data.height = 2.0f * straight;
}

void Maker::addFixed(const FixedRow &row) const
{
    KMBone *owner = bone(row.bone);
    RigidBodyData data;
    data.shape = row.shape;
    setRound(data, row.radius, lengthOf(owner) * (row.to - row.from));
    data.group = BodyGroup;
    data.collisionMask = 1u << BodyGroup;
    data.pose.offset = {0.0f, 0.0f, -0.5f * (row.from + row.to) * lengthOf(owner)};
    auto *body = new KMTagRigidBody;
    body->setParameters(data);
    push(owner, body);
}

/// Each bone has a body, which hangs on that of the bone before; the first one on the fixed body of their parent.
void Maker::addChain(const QVector<QByteArray> &names, const Softness &softness) const
{
    KMTagRigidBody *before = KMPhysicsMaking::firstBody(bone(names.first())->parentBone());
    for (const QByteArray &name : names) {
        KMBone *owner = bone(name);
        RigidBodyData data;
        data.shape = KMTagRigidBody::Capsule;
        data.rigidType = KMTagRigidBody::Physics;
        setRound(data, softness.radius, lengthOf(owner) * 0.8f);
        data.mass = softness.mass;
        data.linearDamping = data.angularDamping = softness.damping;
        data.group = softness.group;
        data.collisionMask = softness.passes;
        data.pose.offset = {0.0f, 0.0f, -0.5f * lengthOf(owner)};
        auto *body = new KMTagRigidBody;
        body->setParameters(data);
        push(owner, body);
        auto *joint = new KMTagJoint;
        joint->setParameters(jointOf(before, body, softness));
        push(owner, joint);
        before = body;
    }
}

/// Keeps neighbours of the skirt together.
void Maker::addSideJoint(const QByteArray &a, const QByteArray &b, const Softness &softness) const
{
    KMBone *owner = bone(a);
    KMBone *other = bone(b);
    const kvm::Vector3 middle = (owner->restHead() + owner->restTail() + other->restHead() + other->restTail()) * 0.25f;
    JointData data = jointOf(KMPhysicsMaking::firstBody(owner), KMPhysicsMaking::firstBody(other), softness);
    data.pose.offset = owner->rotation().conjugate().rotate(middle - owner->restHead());
    constexpr float give = 1.5f;
    data.linearLimit = {0.0f, 0.0f, -give, give, -give, give}; // a model file takes the two of X the other way round
    auto *joint = new KMTagJoint;
    joint->setParameters(data);
    joint->setName(owner->name() + QLatin1Char('-') + other->name());
    gSolution->push(new addTagBoneContainerCommand(owner, joint, -1, addTagCommand::Name::Keep));
}

QVector<QByteArray> mirrored(const QVector<QByteArray> &names)
{
    QVector<QByteArray> images;
    for (const QByteArray &name : names)
        images << KMSampleMesh::mirroredName(name);
    return images;
}

void addHair(const Maker &maker)
{
    for (const KMSampleHair::Chain &chain : KMSampleHair::chains()) {
        QVector<QByteArray> names;
        for (int i = 1; i < chain.joints.size(); ++i)
            names << KMSampleHair::boneName(chain.name, i);
        maker.addChain(names, hair);
        maker.addChain(mirrored(names), hair);
    }
}

void addSkirt(const Maker &maker)
{
    QVector<QByteArray> before;
    for (const KMSampleClothes::SkirtChain &chain : KMSampleClothes::skirtChains()) {
        QVector<QByteArray> names;
        for (int i = 1; i < chain.joints.size(); ++i)
            names << KMSampleClothes::skirtBone(chain.name, i);
        maker.addChain(names, skirt);
        if (mirrored(names) != names)
            maker.addChain(mirrored(names), skirt);
        for (int i = 0; i < before.size(); ++i) {
            maker.addSideJoint(before.at(i), names.at(i), skirt);
            maker.addSideJoint(KMSampleMesh::mirroredName(before.at(i)), KMSampleMesh::mirroredName(names.at(i)),
                               skirt);
        }
        before = names;
    }
}

} // namespace

void KMSamplePhysics::addBodies(KMBoneContainer *rig)
{
    const Maker maker(rig);
    for (const FixedRow &row : fixedRows)
        maker.addFixed(row);
    addHair(maker);
    addSkirt(maker);
}

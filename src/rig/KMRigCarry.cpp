#include "rig/KMRigCarry.h"

#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "math/Matrix4.h"
#include "modifiers/KMObjectTransform.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneKeyCommands.h"
#include "rig/KMPhysicsCommands.h"
#include "rig/KMRigTags.h"

#include <algorithm>
#include <cmath>

using kvm::Matrix4;
using kvm::Quaternion;
using kvm::Vector3;

namespace {

/// A rotation as the image across X has it.
Quaternion acrossX(const Quaternion &rotation)
{
    return {rotation.w, rotation.x, -rotation.y, -rotation.z};
}

void turnRound(JointData::Limits &limits, int axis)
{
    float &least = limits[size_t(2 * axis)], &most = limits[size_t(2 * axis + 1)];
    least = std::exchange(most, -least);
    least = -least;
}

/// What a step does to the parts of a rig.
class Step
{
public:
    explicit Step(const Matrix4 &step)
        : m_step(step)
        , m_frame(KMObjectTransform::moved({}, step))
        , m_isMove(step == Matrix4::fromTranslation(step.translation()))
        , m_isMirrored(m_frame.scale.x < 0.0f)
        , m_factor(std::cbrt(std::fabs(m_frame.scale.x * m_frame.scale.y * m_frame.scale.z)))
    {
    }

    bool isMove() const { return m_isMove; }

    /// The axes go to their images, but for X of one that is mirrored.
    KMBoneRest rest(KMBoneRest rest) const
    {
        rest.head = m_step * rest.head;
        const Vector3 way = m_step.transformDirection(rest.rotation.rotate({0.0f, 0.0f, -1.0f}));
        const Vector3 up = m_step.transformDirection(rest.rotation.rotate({0.0f, 1.0f, 0.0f}));
        const float length = way.length();
        const Vector3 x = cross(up, way * -1.0f);
        if (m_isMove || !(length > 0.0f) || !(x.length() > 0.0f))
            return rest;
        rest.lengthScale *= length;
        const Vector3 ex = x.normalized(), ez = way / -length, ey = cross(ez, ex);
        rest.rotation =
            Quaternion::fromMatrix({{ex.x, ex.y, ex.z, 0, ey.x, ey.y, ey.z, 0, ez.x, ez.y, ez.z, 0, 0, 0, 0, 1}});
        return rest;
    }

    /// Poses turn and move along the axes of the world.
    void takePose(Quaternion &rotation, Vector3 &offset) const
    {
        if (m_isMove)
            return;
        const Quaternion image = m_isMirrored ? acrossX(rotation) : rotation;
        rotation = (m_frame.rotation * image * m_frame.rotation.conjugate()).normalized();
        offset = m_step.transformDirection(offset);
    }

    RigidBodyData body(RigidBodyData data) const
    {
        place(data.pose);
        for (float *size : {&data.width, &data.height, &data.depth})
            *size *= m_factor;
        return data;
    }

    JointData joint(JointData data) const
    {
        place(data.pose);
        for (float &limit : data.linearLimit)
            limit *= m_factor;
        if (m_isMirrored) {
            turnRound(data.linearLimit, 0);
            turnRound(data.angularLimit, 1);
            turnRound(data.angularLimit, 2);
        }
        return data;
    }

private:
    /// Bodies and joints stand in the frames of their bones.
    void place(PoseTransform &pose) const
    {
        pose.offset *= m_factor;
        if (!m_isMirrored)
            return;
        pose.offset.x = -pose.offset.x;
        pose.rotation = acrossX(pose.rotation);
    }

    Matrix4 m_step;
    KMTransform m_frame;
    bool m_isMove;
    bool m_isMirrored;
    float m_factor;
};

void pushKeys(KMBoneContainer *rig, const Step &step)
{
    if (rig->animation()->tracks().isEmpty())
        return;
    auto motion = std::make_unique<BoneAnimation>(rig);
    rig->animation()->copyTo(*motion);
    for (BoneTrack *track : motion->tracks()) {
        for (auto &entry : track->keys)
            step.takePose(entry.second.rotation, entry.second.position);
    }
    gSolution->push(new replaceMotionCommand(editSRTCommand::tr("Edit SRT"), rig, std::move(motion)));
}

void pushPhysics(const KMBoneContainer *rig, const Step &step)
{
    const QList<KMTagRigidBody *> bodies = KMRigTags::bodies(rig);
    for (KMTagRigidBody *body : bodies) {
        const RigidBodyData after = step.body(body->parameters());
        if (after != body->parameters())
            gSolution->push(new editTagRigidBodyCommand(body, after));
    }
    const QList<KMTagJoint *> joints = KMRigTags::joints(rig);
    for (KMTagJoint *joint : joints) {
        const JointData after = step.joint(joint->parameters());
        if (after != joint->parameters())
            gSolution->push(new editTagJointCommand(joint, after));
    }
}

} // namespace

KMRigCarry::KMRigCarry(KMBoneContainer *rig)
    : m_rig(rig)
    , m_transform(rig->transform())
{
    for (KMBone *bone : rig->bones())
        m_bones.append({bone, bone->rest(), bone->keyPose()});
}

void KMRigCarry::show(const Matrix4 &matrix) const
{
    if (!m_rig)
        return;
    const Step step(matrix);
    m_rig->setTransform(KMObjectTransform::moved(m_transform, matrix));
    for (const Start &start : m_bones) {
        PoseTransform pose = start.pose;
        step.takePose(pose.rotation, pose.offset);
        start.bone->setKeyPose(pose);
        start.bone->setRest(step.rest(start.rest));
    }
    m_rig->refreshAfterEdit();
}

void KMRigCarry::restore() const
{
    if (!m_rig)
        return;
    m_rig->setTransform(m_transform);
    for (const Start &start : m_bones) {
        start.bone->setKeyPose(start.pose);
        start.bone->setRest(start.rest);
    }
    m_rig->refreshAfterEdit();
}

void KMRigCarry::push(KMBoneContainer *rig, const Matrix4 &matrix)
{
    const Step step(matrix);
    gSolution->push(new editSRTCommand(rig, KMObjectTransform::moved(rig->transform(), matrix)));
    for (KMBone *bone : rig->bones())
        gSolution->push(new editBoneGeometryCommand(bone, step.rest(bone->rest())));
    if (step.isMove())
        return;
    pushPhysics(rig, step);
    pushKeys(rig, step);
}

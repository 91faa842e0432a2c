#include "rig/KMBone.h"

#include "core/KMDpi.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneKeyCommands.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMTagJoint.h"

namespace {

constexpr int pickPixels = 7;

kvm::Matrix4 movedBy(const kvm::Vector3 &way)
{
    return kvm::Matrix4::fromTranslation(way);
}

} // namespace

KMBone::KMBone()
    : m_shapeMesh(new KMMeshNode)
    , m_ringMesh(new KMMeshNode)
    , m_crossMesh(new KMMeshNode)
    , m_pickRadius(float(dpiScaled(pickPixels)))
{
    setType(KMNodeType::Bone);
    setName(tr("Bone"));
    m_pickMeshes << m_shapeMesh;
    m_guideMeshes << m_ringMesh << m_crossMesh;
    for (KMMeshNode *mesh : {m_shapeMesh, m_ringMesh, m_crossMesh})
        mesh->setOwner(this);
    KMBoneShape::buildBody(*m_shapeMesh, m_viewType);
    KMBoneShape::buildRing(*m_ringMesh);
    KMBoneShape::buildCross(*m_crossMesh);
    updateShape();
}

KMBone::~KMBone()
{
    if (gSolution)
        gSolution->forgetNode(this);
    if (gProject && !gProject->isDestroying())
        emit gProject->boneDestroyed(this);
}

void KMBone::setSelectMask(int mask)
{
    storeSelectMask(mask);
    KMBoneTreeWidget::showSelection(this);
}

void KMBone::storeSelectMask(int mask)
{
    m_selectMask = mask;
    setSelected(mask != 0);
}

KMBoneRest KMBone::rest() const
{
    return {translation(), rotation(), scale(), m_lengthScale};
}

void KMBone::setRest(const KMBoneRest &rest)
{
    m_lengthScale = rest.lengthScale;
    setTransform({rest.scale, rest.rotation, rest.head});
}

void KMBone::setTransform(const KMTransform &transform)
{
    KMCtrlNode::setTransform(transform);
    updateShape();
    refreshGizmos();
    if (container())
        container()->requestPose();
}

void KMBone::setLengthScale(float scale)
{
    m_lengthScale = scale;
    updateShape();
    if (container())
        container()->requestPose();
}

void KMBone::setViewType(int viewType)
{
    if (m_viewType == viewType)
        return;
    m_viewType = viewType;
    KMBoneShape::buildBody(*m_shapeMesh, viewType);
    updateShape();
    if (container()) // the rest tail depends on it
        container()->requestPose();
}

void KMBone::setMovable(bool movable)
{
    m_movable = movable;
    if (!container())
        return;
    if (isPosedByKeys()) // what is held of their offsets is what the bone might do before
        container()->requestFrame();
    else
        container()->requestPose();
}

bool KMBone::isPosedByKeys() const
{
    const BoneTrack *track = container()->animation()->track(name());
    return track && track->bone == this;
}

/// The bones of a container have their places when its list does.
void KMBone::settlePlace() const
{
    if (container())
        container()->bones();
}

int KMBone::boneIndex() const
{
    settlePlace();
    return m_boneIndex;
}

int KMBone::depth() const
{
    settlePlace();
    return m_depth;
}

const QList<KMBone *> &KMBone::childBones() const
{
    settlePlace();
    return m_children;
}

void KMBone::resetPose()
{
    m_poseWorld = m_keyPose = m_solvedPose = m_constraintPose = {};
    m_worldMatrix = m_skinMatrix = {};
}

void KMBone::evaluatePose()
{
    const PoseTransform local = m_poseWorld;
    const kvm::Matrix4 turned = local.rotation.toMatrix();
    kvm::Quaternion rotation = local.rotation;
    if (const KMBone *parent = parentBone()) {
        const kvm::Vector3 offset = m_movable ? local.offset : kvm::Vector3();
        m_worldMatrix = turned * movedBy(m_restHead - parent->m_restHead + offset) * parent->m_worldMatrix;
        rotation = (parent->m_poseWorld.rotation * rotation).normalized();
    } else {
        m_worldMatrix = turned * movedBy(m_restHead + local.offset); // at the top every bone may move
    }
    m_skinMatrix = movedBy(-m_restHead) * m_worldMatrix;
    m_poseWorld = {local.scale, rotation, m_worldMatrix.translation() - m_restHead};
    // A reset in between leaves the shape as it was, so the former solved pose doesn't tell what is shown.
    m_solvedPose = m_poseWorld;
    if (m_solvedPose != m_shownPose)
        updateShape();
}

kvm::Vector3 KMBone::head() const
{
    return m_shapeMesh->position(0);
}

kvm::Vector3 KMBone::tail() const
{
    return m_shapeMesh->position(isPoint() ? 0 : 1);
}

void KMBone::updateShape()
{
    const QVector<kvm::Vector3> &base = KMBoneShape::bodyVertices(m_viewType);
    const kvm::Vector3 place = translation() + m_solvedPose.offset;
    for (int i = 0; i < base.size(); ++i) {
        const kvm::Vector3 turned = m_solvedPose.rotation.rotate(rotation().rotate(base[i]));
        m_shapeMesh->setPosition(i, turned * m_lengthScale + place);
    }
    m_shapeMesh->markMoved();
    m_shownPose = m_solvedPose;
    m_restHead = translation();
    m_restTail = isPoint() ? m_restHead : rest().tail();
}

/// Rigid bodies and joints stand where their bone does at rest: poses leave them alone.
void KMBone::refreshGizmos()
{
    for (int i = 0; i < tagCount(); ++i) {
        const int type = tag(i)->type();
        if ((type == KMNodeType::TagRigidBody || type == KMNodeType::TagJoint) && !tag(i)->isDeleted())
            tag(i)->onFullRefresh();
    }
}

QVector<KMJointSide> KMBone::clearJointRefs(KMTagRigidBody *body)
{
    QVector<KMJointSide> cleared;
    for (KMBone *bone : container()->allBones()) {
        for (KMTagBase *tag : bone->tags()) {
            if (tag->type() != KMNodeType::TagJoint)
                continue;
            auto *joint = nodeAs<KMTagJoint>(tag);
            const bool isA = joint->bodyA() == body;
            const bool isB = joint->bodyB() == body;
            if (isA)
                cleared.append({joint, body, true});
            if (isB)
                cleared.append({joint, body, false});
            if (isA || isB)
                joint->linkBodies(isA ? nullptr : joint->bodyA(), isB ? nullptr : joint->bodyB());
        }
    }
    return cleared;
}

QVector<KMJointSide> KMBone::clearAllJointRefs()
{
    QVector<KMJointSide> cleared;
    for (KMTagBase *tag : tags()) {
        if (tag->type() == KMNodeType::TagRigidBody && !tag->isDeleted())
            cleared += clearJointRefs(nodeAs<KMTagRigidBody>(tag));
    }
    return cleared;
}

void KMBone::refreshShape()
{
    for (KMMeshNode *mesh : {m_shapeMesh, m_ringMesh, m_crossMesh})
        mesh->refreshMesh(mesh->dirtyMask());
}

bool KMBone::isBelow(const KMBone *ancestor) const
{
    const KMBone *bone = parentBone();
    while (bone && bone != ancestor)
        bone = bone->parentBone();
    return bone;
}

KMBone *KMBone::clone(bool copyTags) const
{
    auto *copy = new KMBone;
    copy->setName(name());
    copy->setVisible(isVisible());
    copy->setLocked(isLocked());
    copy->setViewType(m_viewType);
    copy->setFloating(m_floating);
    copy->setLimits(m_limits);
    copy->setRest(rest());
    if (copyTags)
        cloneTagsTo(copy);
    return copy;
}

void KMBone::pushAddCommand()
{
    setName(container()->uniqueName(this));
    gSolution->push(new addBoneCommand(container(), this, parentBone()));
}

void KMBone::pushDeleteCommand()
{
    gSolution->push(new deleteBoneCommand(this));
}

void KMBone::pushRenameCommand(const QString &name)
{
    if (container()->animation()->tracks().isEmpty())
        return KMCtrlNode::pushRenameCommand(name);
    const KMUndoMacro macro(renameNodeCommand::tr("Rename Node"));
    KMCtrlNode::pushRenameCommand(name);
    gSolution->push(new animationBuildBoneCommand(container()));
}

#include "tools/KMPoseDrag.h"

#include "core/KMCommand.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "render/KMBonePicker.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneKeyCommands.h"
#include "rig/KMBoneKeys.h"

#include <QCoreApplication>

KMBone *KMPoseDrag::bone()
{
    KMNode *current = gSolution->currentBone();
    KMBone *bone = current ? nodeAs<KMBone>(current) : nullptr;
    return bone && KMBonePicker::isPickable(*bone) ? bone : nullptr;
}

std::optional<kvm::Vector3> KMPoseDrag::centre() const
{
    const KMBone *current = bone();
    return current ? std::optional<kvm::Vector3>(current->head()) : std::nullopt;
}

kvm::Quaternion KMPoseDrag::localAxes() const
{
    const KMBone *current = bone();
    return current ? current->solvedPose().rotation * current->rotation() : kvm::Quaternion();
}

bool KMPoseDrag::begin(const Grab &grab)
{
    m_bone = bone();
    const KMDragTransform::Kind kind = grab.drag.kind();
    if (!m_bone || kind == KMDragTransform::Kind::Scale
        || (kind == KMDragTransform::Kind::Move && !m_bone->isMovable()))
        return false;
    const QString fault = KMBoneKeys::fault(*m_bone);
    if (!fault.isEmpty()) {
        gSolution->showMessage(fault, KMCommand::MessageLevel);
        m_bone = nullptr;
        return false;
    }
    m_start = m_bone->keyPose();
    m_world = m_bone->solvedPose().rotation;
    m_parent = m_bone->parentBone() ? m_bone->parentBone()->solvedPose().rotation : kvm::Quaternion();
    return true;
}

KMDragTransform KMPoseDrag::apply(const KMDragTransform &transform, const KMCameraNode &)
{
    if (!m_bone)
        return transform;
    PoseTransform pose = m_start;
    if (transform.kind == KMDragTransform::Kind::Rotate)
        pose.rotation = (m_parent.conjugate() * (transform.turn() * m_world)).normalized();
    else
        pose.offset += m_parent.conjugate().rotate(transform.delta);
    show(pose);
    return transform;
}

/// All poses are given anew from those of keys and tools, since an evaluation overwrites them.
void KMPoseDrag::show(const PoseTransform &pose) const
{
    m_bone->setKeyPose(pose);
    m_bone->container()->animation()->reevaluate();
}

void KMPoseDrag::commit()
{
    if (!m_bone)
        return;
    const KMBoneKey key = KMBoneKeys::ofPose(*m_bone, quint32(gProject->currentFrame()));
    const KMUndoMacro macro(QCoreApplication::translate("KMToolAnimation", "Edit Bonekey"));
    gSolution->push(new addBoneKeyCommand(m_bone->container(), key));
}

void KMPoseDrag::cancel()
{
    if (m_bone)
        show(m_start);
}

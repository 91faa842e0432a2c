#include "tools/KMToolAnimation.h"

#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "tools/KMBoneTargets.h"
#include "tools/KMHandleCode.h"
#include "tools/KMPoseDrag.h"
#include "tools/KMToolHandle.h"
#include "tools/KMToolKind.h"

using namespace KMHandleCode;

KMToolAnimation::KMToolAnimation(QWidget *parent)
    : KMToolUniv(KMToolKind::Animation, std::make_unique<KMPoseDrag>(), parent)
{
}

/// The arrows are for bones that may move.
void KMToolAnimation::updateCentre()
{
    KMToolUniv::updateCentre();
    const KMBone *bone = gSolution->project() ? KMPoseDrag::bone() : nullptr;
    const int mode = bone && bone->isMovable() ? handleMode() | Translates : handleMode() & ~Translates;
    if (handle() && mode != handleMode())
        setHandleMode(mode);
}

bool KMToolAnimation::pickAny(const KMCameraNode &camera, const QPointF &position, KMPickRequest &,
                              KMBonePicker::Hit &bone) const
{
    bone = KMBoneTargets::pickBefore(camera, position);
    if (!bone.isHit())
        bone = KMBonePicker::pickBone(camera, position);
    return bone.isHit();
}

/// A pose is one of the whole bone.
bool KMToolAnimation::clickBone(const KMBonePicker::Hit &hit, Qt::KeyboardModifiers modifiers)
{
    KMBonePicker::Hit whole = hit;
    whole.part = KMBonePicker::Part::Body;
    const bool isSelected = KMToolUniv::clickBone(whole, modifiers);
    updateCentre();
    return isSelected;
}

int KMToolAnimation::dragCode(const KMBonePicker::Hit &hit) const
{
    return hit.bone->isMovable() ? Move | AsItIs : int(Ring);
}

QString KMToolAnimation::statusText(const KMHandleDrag &drag, const KMDragTransform &transform) const
{
    return KMToolUniv::statusText(drag, transform).trimmed();
}

#include "shell/KMBoneMoves.h"

#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneTreeCommands.h"

#include <algorithm>

namespace {

QList<KMBone *> siblingsOf(const KMBone *bone)
{
    if (bone->parentBone())
        return bone->parentBone()->childBones();
    QList<KMBone *> tops;
    for (KMBone *other : bone->container()->bones()) {
        if (!other->parentBone())
            tops << other;
    }
    return tops;
}

/// The bone behind which or before which nothing moves: the first sibling from the target on that stays.
KMBone *stayingSibling(KMBone *target, KMTreeWidget::Place place, const QList<KMBone *> &moved)
{
    const QList<KMBone *> siblings = siblingsOf(target);
    for (int i = siblings.indexOf(target) + (place == KMTreeWidget::Place::After); i < siblings.size(); ++i) {
        if (!moved.contains(siblings[i]))
            return siblings[i];
    }
    return nullptr;
}

/// The place before a sibling with the moved bone out of the way; at the end without one.
int positionBefore(const KMBone *sibling, const KMBone *moved)
{
    if (!sibling)
        return -1;
    const int position = KMTreeWidget::positionOf(sibling->item());
    const bool isBehind =
        moved->parentBone() == sibling->parentBone() && KMTreeWidget::positionOf(moved->item()) < position;
    return position - isBehind;
}

bool standsThere(const KMBone *bone, const KMBone *parent, int position)
{
    const int last = siblingsOf(bone).size() - 1;
    return bone->parentBone() == parent && KMTreeWidget::positionOf(bone->item()) == (position < 0 ? last : position);
}

void pushMoves(const QList<KMBone *> &bones, KMBone *parent, const KMBone *sibling)
{
    for (KMBone *bone : bones) {
        const int position = positionBefore(sibling, bone);
        if (!standsThere(bone, parent, position))
            gSolution->push(new moveCtrlNodeCommand(bone, parent, position));
    }
}

} // namespace

bool KMBoneMoves::move(const QList<KMBone *> &bones, KMBone *target, KMTreeWidget::Place place)
{
    const bool isInto = place == KMTreeWidget::Place::Into;
    KMBone *parent = target && !isInto ? target->parentBone() : target;
    QList<KMBone *> movable;
    std::copy_if(bones.begin(), bones.end(), std::back_inserter(movable),
                 [parent](const KMBone *bone) { return canMoveBone(bone, parent); });
    const KMBone *sibling = target && !isInto ? stayingSibling(target, place, movable) : nullptr;
    // Bones that stand in their order where they shall go make no step.
    const bool isOne = movable.size() == 1;
    if (movable.isEmpty() || (isOne && standsThere(movable[0], parent, positionBefore(sibling, movable[0]))))
        return false;
    const KMUndoMacro macro(moveCtrlNodeCommand::tr("Move Bone"));
    pushMoves(movable, parent, sibling);
    return true;
}

void KMBoneMoves::copy(KMBoneContainer *rig, KMBone *target, KMTreeWidget::Place place)
{
    const KMUndoMacro macro(QCoreApplication::translate("KMBoneMoves", "Copy Bone"));
    KMBoneEdit::pushCopies(rig);
    move(rig->topSelectedBones(), target, place);
}

void KMBoneMoves::moveToRig(KMBoneContainer *from, KMBoneContainer *to)
{
    const QList<KMBone *> bones = from->topSelectedBones();
    if (bones.isEmpty())
        return;
    const KMUndoMacro macro(moveCtrlNodeCommand::tr("Move Bone"));
    for (KMBone *bone : bones)
        gSolution->push(new moveBoneToOtherContainerCommand(bone, to));
}

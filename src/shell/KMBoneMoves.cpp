#include "shell/KMBoneMoves.h"

#include "core/KMCommand.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneNames.h"
#include "rig/KMBoneTreeCommands.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

QList<KMBone *> childrenOf(const KMBoneContainer *rig, const KMBone *parent)
{
    if (parent)
        return parent->childBones();
    QList<KMBone *> tops;
    for (KMBone *bone : rig->bones()) {
        if (!bone->parentBone())
            tops << bone;
    }
    return tops;
}

/// The bone behind which or before which nothing moves: the first sibling from the target on that stays.
KMBone *stayingSibling(KMBone *target, KMTreeWidget::Place place, const QList<KMBone *> &moved)
{
    const QList<KMBone *> siblings = childrenOf(target->container(), target->parentBone());
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

/// The bones stand below the parent and before the sibling, null for the end, in their order.
bool standThere(const QList<KMBone *> &bones, const KMBone *parent, KMBone *sibling)
{
    const QList<KMBone *> now = childrenOf(bones.first()->container(), parent);
    QList<KMBone *> wanted;
    for (KMBone *bone : now) {
        if (bone == sibling)
            wanted += bones;
        if (!bones.contains(bone))
            wanted << bone;
    }
    if (!sibling)
        wanted += bones;
    return wanted == now;
}

int keysOf(const KMBoneContainer &rig)
{
    int count = 0;
    for (const BoneTrack *track : rig.animation()->tracks())
        count += int(track->keys.size());
    return count;
}

void tell(const QString &text)
{
    gSolution->showMessage(text, KMCommand::MessageLevel);
}

void moveAll(const QList<KMBone *> &bones, KMBone *target, KMTreeWidget::Place place)
{
    const bool isInto = place == KMTreeWidget::Place::Into;
    KMBone *parent = target && !isInto ? target->parentBone() : target;
    QList<KMBone *> movable;
    std::copy_if(bones.begin(), bones.end(), std::back_inserter(movable),
                 [parent](const KMBone *bone) { return canMoveBone(bone, parent); });
    if (movable.size() < bones.size())
        tell(QCoreApplication::translate("KMBoneMoves", "A bone can't stand below itself"));
    KMBone *sibling = target && !isInto ? stayingSibling(target, place, movable) : nullptr;
    if (movable.isEmpty() || standThere(movable, parent, sibling))
        return;
    const KMUndoMacro macro(moveCtrlNodeCommand::tr("Move Bone"));
    for (KMBone *bone : std::as_const(movable))
        gSolution->push(new moveCtrlNodeCommand(bone, parent, positionBefore(sibling, bone)));
}

} // namespace

void KMBoneMoves::move(const QList<KMBone *> &bones, KMBone *target, KMTreeWidget::Place place)
{
    moveAll(KMBoneEdit::unlocked(bones), target, place);
}

void KMBoneMoves::copy(KMBoneContainer *rig, KMBone *target, KMTreeWidget::Place place)
{
    const KMUndoMacro macro(QCoreApplication::translate("KMBoneMoves", "Copy Bone"));
    KMBoneEdit::pushCopies(rig);
    moveAll(rig->topSelectedBones(), target, place); // copies of locked ones too
}

void KMBoneMoves::moveToRig(KMBoneContainer *from, KMBoneContainer *to)
{
    const QList<KMBone *> tops = KMBoneEdit::unlocked(from->topSelectedBones());
    if (tops.isEmpty())
        return;
    const int keysBefore = keysOf(*from);
    KMBoneNames names(*to);
    const KMUndoMacro macro(moveCtrlNodeCommand::tr("Move Bone"));
    for (KMBone *top : tops) {
        const QList<KMBone *> bones = from->subtree(top->item());
        gSolution->push(new moveBoneToOtherContainerCommand(top, to));
        for (KMBone *bone : bones) { // keys find a bone by its name
            if (names.isTaken(bone->name()))
                bone->pushRenameCommand(names.unique(bone->name()));
            else
                names.take(bone->name());
        }
    }
    if (const int lost = keysBefore - keysOf(*from))
        tell(QCoreApplication::translate("KMBoneMoves", "%n key(s) of the moved bones are gone", nullptr, lost));
}

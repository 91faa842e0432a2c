#include "shell/KMBoneMoves.h"

#include "core/KMCommand.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneNames.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMPhysicsCommands.h"
#include "rig/KMRigTags.h"

#include <QCoreApplication>
#include <QSet>

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

/// Takes bodies off joints that have come to stand in another rig: no player could hold these together. Answers how
/// many joints that were; the body or the joint hangs on one of the bones.
int pushJointsTorn(const KMBoneContainer *rig, const QSet<const KMBone *> &moved)
{
    int torn = 0;
    for (KMTagJoint *joint : KMRigTags::joints(rig)) {
        JointData data = joint->parameters();
        for (QPointer<KMTagRigidBody> *side : {&data.bodyA, &data.bodyB}) {
            const KMBone *bone = *side ? (*side)->bone() : nullptr;
            if (bone && bone->container() != rig && (moved.contains(bone) || moved.contains(joint->bone())))
                side->clear();
        }
        if (data == joint->parameters())
            continue;
        gSolution->push(new editTagJointCommand(joint, data));
        ++torn;
    }
    return torn;
}

void tell(const QString &text)
{
    gSolution->showMessage(text, KMCommand::MessageLevel);
}

} // namespace

void KMBoneMoves::move(const QList<KMBone *> &bones, KMBone *target, KMTreeWidget::Place place)
{
    const bool isInto = place == KMTreeWidget::Place::Into;
    KMBone *parent = target && !isInto ? target->parentBone() : target;
    QList<KMBone *> movable;
    std::copy_if(bones.begin(), bones.end(), std::back_inserter(movable),
                 [parent](const KMBone *bone) { return canMoveBone(bone, parent); });
    if (movable.size() < bones.size())
        tell(QCoreApplication::translate("KMBoneMoves", "A bone can't stand below itself"));
    const auto lacksRoom = [parent](const KMBone *bone) { return !KMBoneEdit::hasRoomFor(bone, parent); };
    movable.erase(std::remove_if(movable.begin(), movable.end(), lacksRoom), movable.end());
    KMBone *sibling = target && !isInto ? stayingSibling(target, place, movable) : nullptr;
    if (movable.isEmpty() || standThere(movable, parent, sibling))
        return;
    const KMUndoMacro macro(moveCtrlNodeCommand::tr("Move Bone"));
    for (KMBone *bone : std::as_const(movable))
        gSolution->push(new moveCtrlNodeCommand(bone, parent, positionBefore(sibling, bone)));
}

void KMBoneMoves::copy(KMBoneContainer *rig, KMBone *target, KMTreeWidget::Place place)
{
    const KMUndoMacro macro(QCoreApplication::translate("KMBoneMoves", "Copy Bone"));
    KMBoneEdit::pushCopies(rig);
    move(rig->topSelectedBones(), target, place);
}

void KMBoneMoves::moveToRig(KMBoneContainer *from, KMBoneContainer *to)
{
    const QList<KMBone *> tops = from->topSelectedBones();
    if (tops.isEmpty())
        return;
    const int keysBefore = keysOf(*from);
    KMBoneNames names(*to);
    QSet<const KMBone *> moved;
    const KMUndoMacro macro(moveCtrlNodeCommand::tr("Move Bone"));
    for (KMBone *top : tops) {
        const QList<KMBone *> bones = from->subtree(top->item());
        gSolution->push(new moveBoneToOtherContainerCommand(top, to));
        for (KMBone *bone : bones) { // keys find a bone by its name
            moved.insert(bone);
            if (names.isTaken(bone->name()))
                bone->pushRenameCommand(names.unique(bone->name()));
            else
                names.take(bone->name());
        }
    }
    QStringList losses;
    if (const int lost = keysBefore - keysOf(*from))
        losses << QCoreApplication::translate("KMBoneMoves", "%n key(s) of the moved bones are gone", nullptr, lost);
    if (const int torn = pushJointsTorn(from, moved) + pushJointsTorn(to, moved))
        losses << QCoreApplication::translate("KMBoneMoves", "%n joint(s) lost a body of the other rig", nullptr, torn);
    if (!losses.isEmpty())
        tell(losses.join(QStringLiteral(", ")));
}

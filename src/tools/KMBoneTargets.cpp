#include "tools/KMBoneTargets.h"

#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshTargets.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneTreeCommands.h"

#include <QCoreApplication>

#include <algorithm>

namespace KMBoneTargets {

namespace {

using KMMeshSelect::Mode;

QString selectText(bool selects)
{
    return selects ? QCoreApplication::translate("KMBoneTargets", "Select Bone")
                   : QCoreApplication::translate("KMBoneTargets", "Unselect Bone");
}

void pushMask(KMBone *bone, int mask)
{
    if (bone->selectMask() != mask)
        gSolution->push(new selectBoneCommand(bone, mask));
}

void selectAlone(KMBone *bone, int ends)
{
    KMBoneContainer *container = bone->container();
    KMMeshSelect::unselectAll();
    if (!container->selectedBones().isEmpty())
        gSolution->push(new selectAllBoneCommand(container, false));
    pushMask(bone, ends);
}

void pushDelete(const QList<KMBone *> &bones)
{
    // From the last to the first, so that children don't move up to a bone that goes too.
    for (int i = bones.size() - 1; i >= 0; --i)
        gSolution->push(new deleteBoneCommand(bones[i]));
}

int endsOf(const KMBonePicker::Hit &hit)
{
    if (hit.part == KMBonePicker::Part::Body || hit.bone->isPoint())
        return KMBone::BothSelected;
    return hit.part == KMBonePicker::Part::Head ? KMBone::HeadSelected : KMBone::TailSelected;
}

} // namespace

KMBoneContainer *container()
{
    KMNode *current = gSolution->currentNode();
    if (!current || current->type() != KMNodeType::BoneContainer)
        return nullptr;
    KMBoneContainer *container = KMBoneContainer::activeBoneContainer();
    return container && container->isVisible() ? container : nullptr;
}

KMBonePicker::Hit pickBefore(const KMCameraNode &camera, const QPointF &position)
{
    const KMBoneContainer *rig = container();
    return rig ? KMBonePicker::pickBone(camera, position, rig) : KMBonePicker::Hit();
}

KMBonePicker::Hit pickBehind(const KMCameraNode &camera, const QPointF &position)
{
    const bool isFree = !container() && KMMeshTargets::chosen().isEmpty();
    return isFree ? KMBonePicker::pickBone(camera, position) : KMBonePicker::Hit();
}

QVector<KMJointMove::Grabbed> selected()
{
    QVector<KMJointMove::Grabbed> grabbed;
    const KMBoneContainer *rig = container();
    if (!rig)
        return grabbed;
    for (KMBone *bone : rig->selectedBones()) {
        if (KMBonePicker::isPickable(*bone))
            grabbed.append({bone, bone->selectMask()});
    }
    return grabbed;
}

bool click(const KMBonePicker::Hit &hit, Mode mode)
{
    if (!hit.isHit() || !KMBonePicker::isPickable(*hit.bone))
        return false;
    const int ends = endsOf(hit);
    const bool isSelected = (hit.bone->selectMask() & ends) == ends;
    const bool isCurrent = container() == hit.bone->container();
    if (isSelected && isCurrent && mode != Mode::Remove) {
        if (gSolution->currentBone() != hit.bone) // of several that are selected it is the one at hand
            gSolution->push(new selectBoneCommand(hit.bone, hit.bone->selectMask()));
        return true;
    }
    const bool removes = mode == Mode::Remove && isSelected;
    const KMUndoMacro macro(selectText(!removes));
    if (removes)
        pushMask(hit.bone, hit.bone->selectMask() & ~ends);
    else if (mode == Mode::Add)
        pushMask(hit.bone, hit.bone->selectMask() | ends);
    else
        selectAlone(hit.bone, ends);
    if (!isCurrent)
        gSolution->push(new selectNodeCommand(hit.bone->container()));
    return !removes;
}

void selectBranch(KMBone *bone, bool on)
{
    const KMUndoMacro macro(selectText(on));
    gSolution->push(new selectCtrlChildCommand(bone, on));
    if (container() != bone->container())
        gSolution->push(new selectNodeCommand(bone->container()));
}

void unselectAll()
{
    KMBoneContainer *rig = container();
    if (!rig || rig->selectedBones().isEmpty())
        return KMMeshSelect::unselectAll();
    const KMUndoMacro macro(QCoreApplication::translate("KMMeshSelect", "UnSelectAll"));
    KMMeshSelect::unselectAll();
    gSolution->push(new selectAllBoneCommand(rig, false));
}

bool deleteSelected()
{
    QList<KMBone *> bones;
    const QVector<KMJointMove::Grabbed> grabbed = selected();
    for (const KMJointMove::Grabbed &entry : grabbed)
        bones << entry.bone;
    if (bones.isEmpty())
        return false;
    const KMUndoMacro macro(QCoreApplication::translate("KMBoneCommand", "Delete Selected Bone"));
    pushDelete(bones);
    return true;
}

void deleteBone(KMBone *bone, float mirrorTolerance)
{
    QList<KMBone *> bones{bone};
    if (gSolution->editFilter().symmetry) {
        KMBoneEdit::pairForEdits(bone->container(), mirrorTolerance);
        KMBone *partner = bone->mirrorBone();
        if (partner && partner != bone && !partner->isLocked())
            bones << partner;
    }
    std::sort(bones.begin(), bones.end(),
              [](const KMBone *a, const KMBone *b) { return a->boneIndex() < b->boneIndex(); });
    const KMUndoMacro macro(deleteBoneCommand::tr("Delete Bone"));
    pushDelete(bones);
}

} // namespace KMBoneTargets

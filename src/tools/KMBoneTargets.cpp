#include "tools/KMBoneTargets.h"

#include "core/KMCommand.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
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

QList<KMBoneContainer *> rigsWithSelection()
{
    QList<KMBoneContainer *> rigs = KMBoneContainer::inTree();
    rigs.erase(std::remove_if(rigs.begin(), rigs.end(),
                              [](const KMBoneContainer *rig) { return rig->selectedBones().isEmpty(); }),
               rigs.end());
    return rigs;
}

void pushNothingSelected()
{
    KMMeshSelect::unselectAll();
    for (KMBoneContainer *rig : rigsWithSelection())
        gSolution->push(new selectAllBoneCommand(rig, false));
}

void selectAlone(KMBone *bone, int ends)
{
    pushNothingSelected();
    pushMask(bone, ends);
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

KMBoneContainer *rigWithSelection()
{
    KMNode *current = gSolution->currentNode();
    if (!current || current->type() != KMNodeType::BoneContainer)
        return nullptr;
    auto *rig = nodeAs<KMBoneContainer>(current);
    return rig->selectedBones().isEmpty() ? nullptr : rig;
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
    if (!container() || rigsWithSelection().isEmpty())
        return KMMeshSelect::unselectAll();
    const KMUndoMacro macro(QCoreApplication::translate("KMMeshSelect", "UnSelectAll"));
    pushNothingSelected();
}

QList<KMBone *> deletable(const KMBoneContainer &rig)
{
    const QList<KMBone *> selected = rig.selectedBones();
    QList<KMBone *> bones;
    std::copy_if(selected.begin(), selected.end(), std::back_inserter(bones),
                 [](const KMBone *bone) { return bone->isVisible() && !bone->isLocked(); });
    const int kept = selected.size() - bones.size();
    if (kept > 0)
        gSolution->showMessage(
            QCoreApplication::translate("KMBoneTargets", "%n bone(s) not deleted: locked or hidden", nullptr, kept),
            KMCommand::MessageLevel);
    return bones;
}

void pushDelete(QList<KMBone *> bones)
{
    // From the last to the first, so that children don't move up to a bone that goes too.
    std::sort(bones.begin(), bones.end(),
              [](const KMBone *a, const KMBone *b) { return a->boneIndex() > b->boneIndex(); });
    for (KMBone *bone : std::as_const(bones))
        gSolution->push(new deleteBoneCommand(bone));
}

bool deleteSelected()
{
    const KMBoneContainer *rig = rigWithSelection();
    if (!rig)
        return false;
    if (rig != container()) {
        gSolution->showMessage(
            QCoreApplication::translate("KMBoneTargets", "Nothing was deleted: %1 is locked or hidden")
                .arg(rig->name()),
            KMCommand::MessageLevel);
        return true;
    }
    const QList<KMBone *> bones = deletable(*rig);
    if (!bones.isEmpty()) {
        const KMUndoMacro macro(QCoreApplication::translate("KMBoneCommand", "Delete Selected Bone"));
        pushDelete(bones);
    }
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
    const KMUndoMacro macro(deleteBoneCommand::tr("Delete Bone"));
    pushDelete(bones);
}

} // namespace KMBoneTargets

#include "rig/KMBoneCommands.h"

#include "core/KMNodePropertyCommands.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"

template <class Value>
KMBoneValueCommand<Value>::KMBoneValueCommand(const QString &text, KMBone *bone, Value before, Value after)
    : changeValueCommand<Value>(text, bone, std::move(before), std::move(after))
    , m_bone(bone)
{
    this->touch(bone->container());
}

selectBoneCommand::selectBoneCommand(KMBone *bone, int mask)
    : KMBoneValueCommand(tr("Select Bone"), bone, bone->selectMask(), mask)
    , m_currentBefore(gSolution->currentBone())
{
}

void selectBoneCommand::apply(Direction direction)
{
    KMBoneValueCommand::apply(direction);
    if (direction == Direction::Undo)
        gSolution->setCurrentBone(m_currentBefore);
    else if (bone()->selectMask())
        gSolution->setCurrentBone(bone());
    else if (gSolution->currentBone() == bone())
        gSolution->setCurrentBone(nullptr);
}

void selectBoneCommand::write(const int &mask)
{
    bone()->setSelectMask(mask);
}

selectAllBoneCommand::selectAllBoneCommand(KMBoneContainer *container, bool selected)
    : selectBonesCommand(container, container->bones(), selected ? KMBone::BothSelected : 0)
{
}

selectCtrlChildCommand::selectCtrlChildCommand(KMBone *bone, bool selected)
    : selectBonesCommand(bone->container(), bone->container()->subtree(bone->item()),
                         selected ? KMBone::BothSelected : 0)
{
}

setFloatBoneCommand::setFloatBoneCommand(KMBone *bone, bool floating)
    : KMBoneValueCommand(tr("Set Float"), bone, bone->isFloating(), floating)
{
}

void setFloatBoneCommand::write(const bool &floating)
{
    bone()->setFloating(floating);
}

setMovableBoneCommand::setMovableBoneCommand(KMBone *bone, bool movable)
    : KMBoneValueCommand(tr("Set Movable"), bone, bone->isMovable(), movable)
{
}

void setMovableBoneCommand::write(const bool &movable)
{
    bone()->setMovable(movable);
}

showCtrlChildCommand::showCtrlChildCommand(KMBone *bone, bool visible)
    : KMUndoCommand(tr("Show Bone"), bone->container())
    , m_after(visible)
{
    for (KMBone *member : bone->container()->subtree(bone->item()))
        m_before.append({member, member->isVisible()});
}

void showCtrlChildCommand::apply(Direction direction)
{
    for (const auto &entry : std::as_const(m_before)) {
        const bool on = direction == Direction::Redo ? m_after : entry.second;
        writeVisible(entry.first, {on, on ? Qt::Checked : Qt::Unchecked});
    }
}

editBoneGeometryCommand::editBoneGeometryCommand(KMBone *bone, const KMBoneRest &rest)
    : editBoneGeometryCommand(bone, bone->rest(), rest)
{
}

editBoneGeometryCommand::editBoneGeometryCommand(KMBone *bone, const KMBoneRest &before, const KMBoneRest &after)
    : KMBoneValueCommand(tr("Edit Bone"), bone, before, after)
{
}

void editBoneGeometryCommand::write(const KMBoneRest &rest)
{
    bone()->setRest(rest);
}

editBoneViewTypeCommand::editBoneViewTypeCommand(KMBone *bone, int viewType)
    : KMBoneValueCommand(tr("Edit Bone"), bone, bone->viewType(), viewType)
{
}

void editBoneViewTypeCommand::write(const int &viewType)
{
    bone()->setViewType(viewType);
}

editBoneLimitHPBCommand::editBoneLimitHPBCommand(KMBone *bone, const BoneLimit &limits)
    : KMBoneValueCommand(tr("Edit Bone"), bone, bone->limits(), limits)
{
}

void editBoneLimitHPBCommand::write(const BoneLimit &limits)
{
    bone()->setLimits(limits);
}

void editBoneLimitHPBCommand::push(const QList<KMBone *> &bones, const BoneLimit &limits, int fields)
{
    for (KMBone *bone : bones) {
        BoneLimit after = bone->limits();
        after.take(limits, fields);
        if (after != bone->limits())
            gSolution->push(new editBoneLimitHPBCommand(bone, after));
    }
}

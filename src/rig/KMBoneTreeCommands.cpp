#include "rig/KMBoneTreeCommands.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"

namespace {

/// Rebuilds the order after a redo; after an undo puts back what that took.
void followRows(KMBoneContainer *container, KMUndoCommand::Direction direction, BoneAnimation::Relinked &relinked)
{
    if (direction == KMUndoCommand::Direction::Redo)
        relinked = container->rebuildOrder();
    else
        container->restoreOrder(std::move(relinked));
}

/// Likewise for what left the rows as they are.
void followNames(KMBoneContainer *container, KMUndoCommand::Direction direction, BoneAnimation::Relinked &relinked)
{
    if (direction == KMUndoCommand::Direction::Redo)
        relinked = container->relinkTracks();
    else
        container->restoreTracks(std::move(relinked));
}

/// Moves a row with what is expanded and hidden in it.
void moveRow(KMBone *bone, KMBoneContainer *container, KMBone *parent, int position)
{
    const KMRowFlags flags = KMTreeWidget::flagsOf(bone->item());
    QTreeWidgetItem *row = bone->container()->detachBone(bone);
    container->attachBone(bone, parent, position, row);
    KMTreeWidget::setFlags(row, flags);
}

void restoreAll(const QVector<KMJointSide> &joints)
{
    for (const KMJointSide &side : joints)
        side.restore();
}

} // namespace

KMBoneOrderCommand::KMBoneOrderCommand(const QString &text, KMBoneContainer *container)
    : KMUndoCommand(text, container)
    , m_container(container)
{
}

void KMBoneOrderCommand::apply(Direction direction)
{
    changeRows(direction);
    followRows(m_container, direction, m_relinked);
}

addBoneCommand::addBoneCommand(KMBoneContainer *container, KMBone *bone, KMBone *parent, int position)
    : KMBoneOrderCommand(tr("Add Bone"), container)
    , m_bone(bone)
    , m_parent(parent)
    , m_position(position)
{
}

void addBoneCommand::changeRows(Direction direction)
{
    if (direction == Direction::Redo)
        return container()->attachBone(m_bone, m_parent, m_position);
    delete container()->detachBone(m_bone);
    m_bone->setItem(nullptr);
    m_bone->setDeleted(true);
    gSolution->forgetNode(m_bone);
}

deleteBoneCommand::deleteBoneCommand(KMBone *bone)
    : KMBoneOrderCommand(tr("Delete Bone"), bone->container())
    , m_bone(bone)
{
}

void deleteBoneCommand::changeRows(Direction direction)
{
    if (direction == Direction::Redo)
        detach();
    else
        attach();
}

void deleteBoneCommand::detach()
{
    m_flags = KMTreeWidget::flagsOf(m_bone->item());
    m_parent = m_bone->parentBone();
    m_position = KMTreeWidget::positionOf(m_bone->item());
    m_children = KMBoneTreeWidget::childrenOf(m_bone->item());
    m_selectMask = m_bone->selectMask();
    m_wasCurrent = gSolution->currentBone() == m_bone;
    for (int i = 0; i < m_children.size(); ++i)
        moveRow(m_children[i], container(), m_parent, m_position + i);
    m_bone->setSelectMask(0);
    m_joints = m_bone->clearAllJointRefs();
    m_row.reset(container()->detachBone(m_bone));
    m_bone->setItem(nullptr); // the row goes when this command does
    m_bone->setDeleted(true);
    gSolution->forgetNode(m_bone);
}

void deleteBoneCommand::attach()
{
    QTreeWidgetItem *row = m_row.release();
    container()->attachBone(m_bone, m_parent, m_position, row);
    for (KMBone *child : std::as_const(m_children))
        moveRow(child, container(), m_bone, -1);
    KMTreeWidget::setFlags(row, m_flags);
    m_bone->setSelectMask(m_selectMask);
    restoreAll(m_joints);
    if (m_wasCurrent)
        gSolution->setCurrentBone(m_bone);
}

bool canMoveBone(const KMBone *bone, const KMBone *target)
{
    return !target || (target != bone && !target->isBelow(bone) && target->container() == bone->container());
}

moveCtrlNodeCommand::moveCtrlNodeCommand(KMBone *bone, KMBone *parent, int position)
    : moveCtrlNodeCommand(tr("Move Bone"), bone, parent, position)
{
}

moveCtrlNodeCommand::moveCtrlNodeCommand(const QString &text, KMBone *bone, KMBone *parent, int position)
    : KMBoneOrderCommand(text, bone->container())
    , m_bone(bone)
    , m_parentBefore(bone->parentBone())
    , m_positionBefore(KMTreeWidget::positionOf(bone->item()))
    , m_parentAfter(parent)
    , m_positionAfter(position)
{
}

void moveCtrlNodeCommand::changeRows(Direction direction)
{
    if (direction == Direction::Redo)
        moveRow(m_bone, container(), m_parentAfter, m_positionAfter);
    else
        moveRow(m_bone, container(), m_parentBefore, m_positionBefore);
}

setCtrlParentCommand::setCtrlParentCommand(KMBone *bone, KMBone *parent)
    : moveCtrlNodeCommand(tr("Set Parent"), bone, parent, -1)
{
}

moveBoneToOtherContainerCommand::moveBoneToOtherContainerCommand(KMBone *bone, KMBoneContainer *container,
                                                                 KMBone *parent, int position)
    : KMUndoCommand(tr("Move Bone"), container)
    , m_bone(bone)
    , m_before{bone->container(), bone->parentBone(), KMTreeWidget::positionOf(bone->item())}
    , m_after{container, parent, position}
{
    touch(bone->container());
}

void moveBoneToOtherContainerCommand::move(const Place &place)
{
    KMBoneContainer *source = m_bone->container();
    const QList<KMBone *> bones = source->subtree(m_bone->item());
    moveRow(m_bone, place.container, place.parent, place.position);
    for (KMBone *bone : bones) {
        source->releaseBone(bone);
        place.container->adoptBone(bone);
    }
}

void moveBoneToOtherContainerCommand::apply(Direction direction)
{
    move(direction == Direction::Redo ? m_after : m_before);
    followRows(m_before.container, direction, m_relinkedBefore);
    followRows(m_after.container, direction, m_relinkedAfter);
    // The keys stay behind, and a pose without its key isn't kept.
    for (KMBoneContainer *container : {m_before.container, m_after.container})
        container->requestFrame();
}

addTagBoneContainerCommand::addTagBoneContainerCommand(KMBone *bone, KMTagBase *tag, int index, Name name)
    : addTagCommand(bone, tag, index, name)
    , m_bone(bone)
{
    touch(bone->container());
}

void addTagBoneContainerCommand::apply(Direction direction)
{
    addTagCommand::apply(direction);
    followNames(m_bone->container(), direction, m_relinked);
}

deleteTagBoneContainerCommand::deleteTagBoneContainerCommand(KMBone *bone, KMTagBase *tag)
    : deleteTagCommand(bone, tag)
    , m_bone(bone)
    , m_bodyTag(tag->type() == KMNodeType::TagRigidBody ? tag : nullptr)
{
    touch(bone->container());
}

void deleteTagBoneContainerCommand::apply(Direction direction)
{
    deleteTagCommand::apply(direction);
    if (direction == Direction::Undo)
        restoreAll(m_joints);
    else if (m_bodyTag)
        m_joints = m_bone->clearJointRefs(nodeAs<KMTagRigidBody>(m_bodyTag));
    followNames(m_bone->container(), direction, m_relinked);
}

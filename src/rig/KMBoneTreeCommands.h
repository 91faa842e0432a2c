#pragma once

#include "core/KMTagCommands.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoCommand.h"
#include "rig/BoneAnimation.h"
#include "rig/KMTagJoint.h"

#include <QCoreApplication>

#include <memory>

class KMBone;
class KMBoneContainer;

/// Base of what changes the rows of a container: afterwards lists and tracks follow. Undo puts back the tracks that
/// lost their bone.
class KMBoneOrderCommand : public KMUndoCommand
{
protected:
    KMBoneOrderCommand(const QString &text, KMBoneContainer *container);

    KMBoneContainer *container() const { return m_container; }
    virtual void changeRows(Direction direction) = 0;
    void apply(Direction direction) override;

private:
    KMBoneContainer *m_container;
    BoneAnimation::Relinked m_relinked; // while applied
};

/// Brings a bone into a container, under a parent or, with null, at the top. The container owns it from now on, also
/// while the command is undone. The name is taken as it is.
class addBoneCommand : public KMBoneOrderCommand
{
    Q_DECLARE_TR_FUNCTIONS(addBoneCommand)
public:
    addBoneCommand(KMBoneContainer *container, KMBone *bone, KMBone *parent, int position = -1);

protected:
    void changeRows(Direction direction) override;

private:
    KMBone *m_bone;
    KMBone *m_parent;
    int m_position;
};

/// Takes a bone out of its container; its children come in its place. It stays in the container's list of all bones,
/// since weights and other tags may refer to it.
class deleteBoneCommand : public KMBoneOrderCommand
{
    Q_DECLARE_TR_FUNCTIONS(deleteBoneCommand)
public:
    explicit deleteBoneCommand(KMBone *bone);

protected:
    void changeRows(Direction direction) override;

private:
    void detach();
    void attach();

    KMBone *m_bone;
    KMBone *m_parent = nullptr;
    int m_position = -1;
    QList<KMBone *> m_children;             // as they stood below it
    std::unique_ptr<QTreeWidgetItem> m_row; // while applied, without the children
    KMRowFlags m_flags;
    int m_selectMask = 0;
    bool m_wasCurrent = false;
    QVector<KMJointSide> m_joints; // while applied: what held on to its rigid bodies
};

/// Whether a bone may be moved under or beside another one: not to itself and not below itself. A null target stands
/// for the top.
bool canMoveBone(const KMBone *bone, const KMBone *target);

/// Moves a bone with all below it to a place of its container's tree. The caller asks canMoveBone() before.
class moveCtrlNodeCommand : public KMBoneOrderCommand
{
    Q_DECLARE_TR_FUNCTIONS(moveCtrlNodeCommand)
public:
    /// To a place among the children of the parent, null for the top, the moved bone not counted; -1 puts it last.
    moveCtrlNodeCommand(KMBone *bone, KMBone *parent, int position = -1);

protected:
    moveCtrlNodeCommand(const QString &text, KMBone *bone, KMBone *parent, int position);
    void changeRows(Direction direction) override;

private:
    KMBone *m_bone;
    KMBone *m_parentBefore;
    int m_positionBefore;
    KMBone *m_parentAfter;
    int m_positionAfter;
};

/// Gives a bone another parent, whose last child it becomes; null puts it at the top.
class setCtrlParentCommand : public moveCtrlNodeCommand
{
    Q_DECLARE_TR_FUNCTIONS(setCtrlParentCommand)
public:
    setCtrlParentCommand(KMBone *bone, KMBone *parent);
};

/// Moves a bone with all below it to another container, under a parent there; null puts it at the top.
class moveBoneToOtherContainerCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moveBoneToOtherContainerCommand)
public:
    moveBoneToOtherContainerCommand(KMBone *bone, KMBoneContainer *container, KMBone *parent = nullptr,
                                    int position = -1);

protected:
    void apply(Direction direction) override;

private:
    struct Place
    {
        KMBoneContainer *container;
        KMBone *parent;
        int position;
    };
    void move(const Place &place);

    KMBone *m_bone;
    Place m_before;
    Place m_after;
    BoneAnimation::Relinked m_relinkedBefore; // while applied
    BoneAnimation::Relinked m_relinkedAfter;
};

/// Hangs a tag on a bone; the order is rebuilt.
class addTagBoneContainerCommand : public addTagCommand
{
public:
    addTagBoneContainerCommand(KMBone *bone, KMTagBase *tag, int index = -1, Name name = Name::Numbered);

protected:
    void apply(Direction direction) override;

private:
    KMBone *m_bone;
    BoneAnimation::Relinked m_relinked;
};

/// Takes a tag of a bone out of use; the order is rebuilt. Joints let go of a rigid body.
class deleteTagBoneContainerCommand : public deleteTagCommand
{
public:
    deleteTagBoneContainerCommand(KMBone *bone, KMTagBase *tag);

protected:
    void apply(Direction direction) override;

private:
    KMBone *m_bone;
    KMTagBase *m_bodyTag;          // null for tags that no joint holds
    QVector<KMJointSide> m_joints; // while applied
    BoneAnimation::Relinked m_relinked;
};

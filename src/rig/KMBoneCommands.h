#pragma once

#include "core/KMChangeValueCommand.h"
#include "rig/BoneLimit.h"
#include "rig/KMBoneSelectionCommand.h"
#include "rig/KMRestBone.h"

#include <QCoreApplication>
#include <QList>
#include <QPair>
#include <QVector>

class KMBone;
class KMBoneContainer;

/// Sets one value of a bone. The container is what follows.
template <class Value>
class KMBoneValueCommand : public changeValueCommand<Value>
{
protected:
    KMBoneValueCommand(const QString &text, KMBone *bone, Value before, Value after);

    KMBone *bone() const { return m_bone; }

private:
    KMBone *m_bone;
};

/// Selects head, tail, both or none of a bone. With any selected it becomes the current bone.
class selectBoneCommand : public KMBoneValueCommand<int>
{
    Q_DECLARE_TR_FUNCTIONS(selectBoneCommand)
public:
    selectBoneCommand(KMBone *bone, int mask); ///< of KMBone::SelectBit

protected:
    void write(const int &mask) override;
    void apply(Direction direction) override;

private:
    class KMNode *m_currentBefore;
};

/// Selects heads and tails of all bones, or none.
class selectAllBoneCommand : public selectBonesCommand
{
public:
    selectAllBoneCommand(KMBoneContainer *container, bool selected);
};

/// Selects a bone with all below it, or takes them out of the selection.
class selectCtrlChildCommand : public selectBonesCommand
{
public:
    selectCtrlChildCommand(KMBone *bone, bool selected);
};

class setFloatBoneCommand : public KMBoneValueCommand<bool>
{
    Q_DECLARE_TR_FUNCTIONS(setFloatBoneCommand)
public:
    setFloatBoneCommand(KMBone *bone, bool floating);

protected:
    void write(const bool &floating) override;
};

class setMovableBoneCommand : public KMBoneValueCommand<bool>
{
    Q_DECLARE_TR_FUNCTIONS(setMovableBoneCommand)
public:
    setMovableBoneCommand(KMBone *bone, bool movable);

protected:
    void write(const bool &movable) override;
};

/// Shows or hides a bone with all below it.
class showCtrlChildCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(showCtrlChildCommand)
public:
    showCtrlChildCommand(KMBone *bone, bool visible);

protected:
    void apply(Direction direction) override;

private:
    QVector<QPair<KMBone *, bool>> m_before;
    bool m_after;
};

/// Gives a bone another place, rotation, scale and length at rest.
class editBoneGeometryCommand : public KMBoneValueCommand<KMBoneRest>
{
    Q_DECLARE_TR_FUNCTIONS(editBoneGeometryCommand)
public:
    editBoneGeometryCommand(KMBone *bone, const KMBoneRest &rest);
    /// For a drag that has moved the bone already: undo goes back to what was before it.
    editBoneGeometryCommand(KMBone *bone, const KMBoneRest &before, const KMBoneRest &after);

protected:
    void write(const KMBoneRest &rest) override;
};

class editBoneViewTypeCommand : public KMBoneValueCommand<int>
{
    Q_DECLARE_TR_FUNCTIONS(editBoneViewTypeCommand)
public:
    editBoneViewTypeCommand(KMBone *bone, int viewType);

protected:
    void write(const int &viewType) override;
};

class editBoneLimitHPBCommand : public KMBoneValueCommand<BoneLimit>
{
    Q_DECLARE_TR_FUNCTIONS(editBoneLimitHPBCommand)
public:
    editBoneLimitHPBCommand(KMBone *bone, const BoneLimit &limits);

    /// Gives several bones what was touched of the limits, by a mask of BoneLimit::Field. Bones that have these values
    /// already get no command. Opens no macro.
    static void push(const QList<KMBone *> &bones, const BoneLimit &limits, int fields);

protected:
    void write(const BoneLimit &limits) override;
};

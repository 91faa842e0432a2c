#pragma once

#include "core/KMChangeValueCommand.h"
#include "rig/KMDisplayNode.h"

#include <QCoreApplication>

/// Brings a display group into the document, which has it in its list already. While undone the command owns it.
class addDisplayNodeCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(addDisplayNodeCommand)
public:
    explicit addDisplayNodeCommand(KMDisplayNode *group);
    ~addDisplayNodeCommand() override;

protected:
    void apply(Direction direction) override;

private:
    KMDisplayNode *m_group;
    bool m_applied = false;
};

/// Takes a display group out of the document. It keeps its place in the list; when the step can't be undone any more it
/// goes with the command.
class removeDisplayNodeCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(removeDisplayNodeCommand)
public:
    explicit removeDisplayNodeCommand(KMDisplayNode *group);
    ~removeDisplayNodeCommand() override;

protected:
    void apply(Direction direction) override;

private:
    KMDisplayNode *m_group;
    bool m_applied = false;
};

/// Moves a display group among the live ones.
class moveDisplayNodeCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moveDisplayNodeCommand)
public:
    moveDisplayNodeCommand(KMDisplayNode *group, int position); ///< the moved one not counted

    static QList<KMDisplayNode *> liveGroups(); ///< of the project, in its order

protected:
    void apply(Direction direction) override;

private:
    /// With the deleted ones, which must come back between the same neighbours; the history may let go of them.
    using Order = QVector<QPointer<KMDisplayNode>>;

    Order m_before;
    Order m_after;
};

class renameDisplayNodeCommand : public changeValueCommand<QString>
{
    Q_DECLARE_TR_FUNCTIONS(renameDisplayNodeCommand)
public:
    renameDisplayNodeCommand(KMDisplayNode *group, const QString &name);

protected:
    void write(const QString &name) override;

private:
    KMDisplayNode *m_group;
};

/// Base of what changes the lines of a group. Places count the live ones. One step keeps all lines before and after, so
/// several go in one.
class KMDisplayItemsCommand : public changeValueCommand<KMDisplayNode::Items>
{
protected:
    KMDisplayItemsCommand(const QString &text, KMDisplayNode *group, const KMDisplayNode::Items &items);
    void write(const KMDisplayNode::Items &items) override;

private:
    KMDisplayNode *m_group;
};

class addDisplayItemCommand : public KMDisplayItemsCommand
{
    Q_DECLARE_TR_FUNCTIONS(addDisplayItemCommand)
public:
    addDisplayItemCommand(KMDisplayNode *group, const DisplayItem &item, int position = -1); ///< -1: last
    addDisplayItemCommand(KMDisplayNode *group, const KMDisplayNode::Items &items, int position = -1);
};

class removeDisplayItemCommand : public KMDisplayItemsCommand
{
    Q_DECLARE_TR_FUNCTIONS(removeDisplayItemCommand)
public:
    removeDisplayItemCommand(KMDisplayNode *group, int position);
    removeDisplayItemCommand(KMDisplayNode *group, const QList<int> &positions); ///< ascending
};

/// Lines name other nodes: what was copied stands for what is gone.
class relinkDisplayItemsCommand : public KMDisplayItemsCommand
{
    Q_DECLARE_TR_FUNCTIONS(relinkDisplayItemsCommand)
public:
    relinkDisplayItemsCommand(KMDisplayNode *group, const KMDisplayNode::Items &items);
};

class moveDisplayItemCommand : public KMDisplayItemsCommand
{
    Q_DECLARE_TR_FUNCTIONS(moveDisplayItemCommand)
public:
    using Moves = QVector<QPair<int, int>>; ///< from, to, one after the other

    moveDisplayItemCommand(KMDisplayNode *group, int from, int to); ///< to: the moved one not counted
    moveDisplayItemCommand(KMDisplayNode *group, const Moves &moves);
};

#pragma once

#include "core/KMNullNode.h"
#include "core/KMTagBase.h"
#include "core/KMUndoCommand.h"

#include <QStringList>
#include <QVector>

/// What was asked of the fakes of a test, in order.
using CallLog = QStringList;

/// Stands for a mesh, primitive, modifier or bone: it bears the type of one and answers the hooks by which the
/// session reaches into those classes, with what the test sets. Each call goes to the log as "hook name".
class FakeNode : public KMNullNode
{
    Q_OBJECT
public:
    FakeNode(int type, const QString &name, CallLog *log = nullptr);

    KMContainerNode *clone() const override;
    void pushDeleteCommand() override;
    bool isRefreshDeferred() const override { return refreshDeferred; }
    void refreshAfterEdit() override { note("refresh"); }
    void notifyDependents() override { note("notify"); }
    void forceFullRefresh() override { note("forceRefresh"); }
    QList<KMContainerNode *> evaluatedMeshes() const override;
    bool isChainStale() const override;
    KMUndoCommand *makeBuildCommand() override;
    void pushShaderRemoved(int index) override; ///< pushes a command that shifts faceShaders

    bool refreshDeferred = false;
    KMContainerNode *evaluated = nullptr; ///< not owned
    mutable bool hasOtherChain = false;   ///< until it was asked
    QVector<int> faceShaders;

private:
    void note(const char *hook) const;

    CallLog *m_log;
};

/// A tag of any type with parts that may have a block in the schematic.
class FakeTag : public KMTagBase
{
    Q_OBJECT
public:
    explicit FakeTag(const QString &name, int type = 0); ///< 0 keeps the type of the base
    KMTagBase *clone() const override;
    QList<KMNode *> blockNodes() const override { return parts; }

    QList<KMNode *> parts; ///< not owned
};

/// A step of the history that changes nothing; it writes "redo text" and "undo text" to the log.
class FakeCommand : public KMUndoCommand
{
public:
    explicit FakeCommand(const QString &text, CallLog *log = nullptr, KMNode *node = nullptr,
                         KMNode *touched = nullptr);

protected:
    void apply(Direction direction) override;

private:
    CallLog *m_log;
};

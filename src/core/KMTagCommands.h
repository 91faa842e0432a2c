#pragma once

#include "core/KMChangeValueCommand.h"
#include "core/KMTagBase.h"

#include <QCoreApplication>
#include <QList>
#include <QPointer>

class KMContainerNode;

/// Hangs a new tag on a node. While undone it owns the tag.
class addTagCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(addTagCommand)
public:
    enum class Name {
        Numbered, ///< the first free number is put behind the tag's name
        Keep      ///< for tags that come with their name from a file or another node
    };

    /// At an index of the node's tag list; -1 puts it last.
    addTagCommand(KMContainerNode *node, KMTagBase *tag, int index = -1, Name name = Name::Numbered);
    ~addTagCommand() override;

protected:
    void apply(Direction direction) override;

private:
    KMContainerNode *m_target;
    QPointer<KMTagBase> m_tag;
    int m_index;
    bool m_applied = false;
};

/// Takes a tag out of use: it keeps its place in the node's list, marked deleted. When the deletion can no
/// longer be undone, the tag goes with the command.
class deleteTagCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(deleteTagCommand)
public:
    deleteTagCommand(KMContainerNode *node, KMTagBase *tag);
    ~deleteTagCommand() override;

protected:
    void apply(Direction direction) override;

private:
    KMContainerNode *m_target;
    QPointer<KMTagBase> m_tag;
    bool m_applied = false;
};

/// Moves a tag to another node, or to another place on its own node. It keeps its name.
class moveTagCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moveTagCommand)
public:
    /// To a place among the target's live tags, the moved one not counted; -1 puts it last.
    moveTagCommand(KMTagBase *tag, KMContainerNode *target, int position = -1);

protected:
    void apply(Direction direction) override;

private:
    int indexOnSource() const;

    KMTagBase *m_tag;
    KMContainerNode *m_source;
    KMContainerNode *m_target;
    int m_index;                               // in the target's list
    QList<QPointer<KMTagBase>> m_predecessors; // of the tag on its source; deleted ones may be destroyed meanwhile
};

/// Renames a tag and its block in the schematic.
class renameTagCommand : public changeValueCommand<QString>
{
    Q_DECLARE_TR_FUNCTIONS(renameTagCommand)
public:
    renameTagCommand(KMTagBase *tag, const QString &name);

protected:
    void write(const QString &name) override;

private:
    KMTagBase *m_tag;
};

#pragma once

#include "core/KMTreeWidget.h"
#include "core/KMUndoCommand.h"

#include <QCoreApplication>

/// Brings a new node into the tree as the last top-level row. While undone it owns the node.
class addNodeCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(addNodeCommand)
public:
    explicit addNodeCommand(KMContainerNode *node);
    ~addNodeCommand() override;

protected:
    void apply(Direction direction) override;
    virtual void
    placeRow(QTreeWidgetItem *row); ///< puts the new row into the tree; selects its node if it shall be current

private:
    void attach();
    void detach();

    KMContainerNode *m_target;
    bool m_applied = false;
};

/// Takes a node with its subtree out of the tree. While applied it owns the nodes and their rows.
/// Undo gives back the same nodes at the same place, with what was expanded and hidden.
class deleteNodeCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(deleteNodeCommand)
public:
    explicit deleteNodeCommand(KMContainerNode *node);
    ~deleteNodeCommand() override;

protected:
    void apply(Direction direction) override;

private:
    void detach();
    void attach();

    KMContainerNode *m_target;
    QTreeWidgetItem *m_row = nullptr;        // owned while applied, with all rows below it
    KMContainerNode *m_parentNode = nullptr; // null for a top-level row
    int m_position = -1;
    bool m_applied = false;
    KMRowFlags m_flags;
};

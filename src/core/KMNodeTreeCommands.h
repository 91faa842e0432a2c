#pragma once

#include "core/KMNodeCommands.h"

#include <QString>

/// Whether the view follows a command to the row that it brings.
enum class KMRowFocus {
    Current, ///< the row becomes the current one
    Keep     ///< what is current stays: for readers and for steps in the middle of a macro
};

/// Whether a node may be moved under or beside another one: not to itself and not below itself.
/// A null target stands for the top of the tree, where every node may go.
bool canMove(const KMContainerNode *source, const KMContainerNode *target);

/// Brings a new node into the tree at a place. KMProject::addRaw has named and listed it before.
/// While undone it owns the node.
class insertNodeCommand : public addNodeCommand
{
    Q_DECLARE_TR_FUNCTIONS(insertNodeCommand)
public:
    /// Under the parent, null for the top, before the row that is at the position now; -1 puts it last.
    explicit insertNodeCommand(KMContainerNode *node, KMContainerNode *parent, int position = -1,
                               KMRowFocus focus = KMRowFocus::Current);

protected:
    void placeRow(QTreeWidgetItem *row) override;

private:
    KMContainerNode *m_parentNode;
    int m_position;
    KMRowFocus m_focus;
};

/// Moves a node with its subtree to another place of the tree. What is expanded and hidden stays so.
/// The caller asks canMove() before, and KMProject::checkModifiers() after.
class moveNodeCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moveNodeCommand)
public:
    enum Mode {
        LastTopLevel,   ///< the target doesn't matter and may be null
        LastChild,      ///< of the target
        BeforeTopLevel, ///< before the top-level row of the target, or of the one that holds it
        BeforeSibling   ///< before the target, under the target's parent
    };

    moveNodeCommand(Mode mode, KMContainerNode *target, KMContainerNode *source,
                    KMRowFocus focus = KMRowFocus::Current);

protected:
    void apply(Direction direction) override;

private:
    struct Place
    {
        KMContainerNode *parentNode = nullptr; // null at the top; its row may have been replaced since
        int position = -1;
    };
    Place destination() const;

    Mode m_mode;
    KMContainerNode *m_target;
    KMContainerNode *m_source;
    KMRowFocus m_focus;
    Place m_origin;
};

/// Lets a new node take over the row of another one, which leaves the scene: children and place stay.
/// The command owns the one of the two that is out. KMProject::addRaw has named and listed the newcomer before.
class changeNodeCommand : public KMUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(changeNodeCommand)
public:
    changeNodeCommand(KMContainerNode *newcomer, KMContainerNode *leaver);
    ~changeNodeCommand() override;

protected:
    void apply(Direction direction) override;

private:
    void exchange(KMContainerNode *in, KMContainerNode *out);
    void rememberLook(const QTreeWidgetItem *row);
    void restoreLook(QTreeWidgetItem *row) const;

    KMContainerNode *m_newcomer;
    KMContainerNode *m_leaver;
    QString m_leaverText; // how the row looked before: not all that it shows follows from the node
    Qt::CheckState m_leaverVisible = Qt::Unchecked;
    Qt::CheckState m_leaverLocked = Qt::Unchecked;
    bool m_applied = false;
};

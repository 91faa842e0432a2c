#pragma once

#include "core/KMChangeValueCommand.h"

#include <QCoreApplication>
#include <QString>

class KMContainerNode;

/// Makes a node the current one of tree and session.
class selectNodeCommand : public changeValueCommand<KMNode *>
{
    Q_DECLARE_TR_FUNCTIONS(selectNodeCommand)
public:
    explicit selectNodeCommand(KMNode *node); ///< null for none

protected:
    void write(KMNode *const &node) override;
};

/// Renames a node, its row and its block in the schematic. The name is taken as it is.
class renameNodeCommand : public changeValueCommand<QString>
{
    Q_DECLARE_TR_FUNCTIONS(renameNodeCommand)
public:
    renameNodeCommand(KMContainerNode *node, const QString &name);

protected:
    void write(const QString &name) override;

private:
    KMContainerNode *m_target;
};

/// Sets the information text of the project.
class reinfoNodeCommand : public changeValueCommand<QString>
{
    Q_DECLARE_TR_FUNCTIONS(reinfoNodeCommand)
public:
    explicit reinfoNodeCommand(const QString &information);

protected:
    void write(const QString &information) override;
};

/// Sets one of the four text fields of the project.
class renameKMPNodeCommand : public changeValueCommand<QString>
{
    Q_DECLARE_TR_FUNCTIONS(renameKMPNodeCommand)
public:
    renameKMPNodeCommand(int slot, const QString &text); ///< slot 0 to 3: KMProject::textInfo() 1 to 4

protected:
    void write(const QString &text) override;

private:
    int m_slot;
};

/// A switch of a node that has a box in its row. Rows of nulls start with cleared boxes, whatever the node
/// says, so undo puts back the box as well as the value.
struct KMNodeSwitch
{
    bool on;
    Qt::CheckState box;
};

/// Writes value and box, for commands that show or hide several nodes at once.
void writeVisible(KMContainerNode *node, const KMNodeSwitch &visible);

/// Shows or hides a node in the views; the class decides what else follows.
class setVisibleCommand : public changeValueCommand<KMNodeSwitch>
{
    Q_DECLARE_TR_FUNCTIONS(setVisibleCommand)
public:
    setVisibleCommand(KMContainerNode *node, bool visible);

protected:
    void write(const KMNodeSwitch &visible) override;

private:
    KMContainerNode *m_target;
};

/// Locks a node against selection and edits, or frees it.
class setLockedCommand : public changeValueCommand<KMNodeSwitch>
{
    Q_DECLARE_TR_FUNCTIONS(setLockedCommand)
public:
    setLockedCommand(KMContainerNode *node, bool locked);

protected:
    void write(const KMNodeSwitch &locked) override;

private:
    KMContainerNode *m_target;
};

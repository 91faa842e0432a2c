#pragma once

#include "core/KMProject.h"
#include "core/KMUndoCommand.h"

#include <QCoreApplication>

/// Puts a shader or texture into its live list or takes it out; the four commands below say which. The owner
/// of a node that is out of the list is the command. References to it are the business of KMProject.
class shelfCommand : public KMUndoCommand
{
public:
    enum class Step { Add, Delete };

    ~shelfCommand() override;

protected:
    shelfCommand(const QString &text, KMProject::Shelf shelf, Step step, KMContainerNode *node);
    void apply(Direction direction) override;

private:
    void attach();
    void detach();

    KMProject::Shelf m_shelf;
    Step m_step;
    KMContainerNode *m_target;
    int m_index = -1; // where it was in the list; -1 puts it at the end
    bool m_attached;
};

class addShaderNodeCommand : public shelfCommand
{
    Q_DECLARE_TR_FUNCTIONS(addShaderNodeCommand)
public:
    explicit addShaderNodeCommand(KMContainerNode *shader);
};

class deleteShaderNodeCommand : public shelfCommand
{
    Q_DECLARE_TR_FUNCTIONS(deleteShaderNodeCommand)
public:
    explicit deleteShaderNodeCommand(KMContainerNode *shader);
};

class addTextureNodeCommand : public shelfCommand
{
    Q_DECLARE_TR_FUNCTIONS(addTextureNodeCommand)
public:
    explicit addTextureNodeCommand(KMContainerNode *texture);
};

class deleteTextureNodeCommand : public shelfCommand
{
    Q_DECLARE_TR_FUNCTIONS(deleteTextureNodeCommand)
public:
    explicit deleteTextureNodeCommand(KMContainerNode *texture);
};

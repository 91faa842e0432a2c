#include "core/KMUndoCommand.h"

#include "core/KMSolution.h"

KMUndoCommand::KMUndoCommand(const QString &text, KMNode *node)
    : m_node(node)
{
    setText(text);
}

KMUndoCommand::~KMUndoCommand()
{
    if (gSolution)
        gSolution->forgetCommand(this);
}

void KMUndoCommand::redo()
{
    gSolution->countStep(+1);
    apply(Direction::Redo);
}

void KMUndoCommand::undo()
{
    gSolution->countStep(-1);
    apply(Direction::Undo);
}

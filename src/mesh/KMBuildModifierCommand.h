#pragma once

#include "mesh/KMMeshCommand.h"
#include "mesh/KMMeshNode.h"

#include <QCoreApplication>

/// Links the chain of a mesh as the rows below it stand when the command is made. It follows whatever adds, removes,
/// moves or switches a modifier, in the same macro.
class buildModifierCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(buildModifierCommand)
public:
    explicit buildModifierCommand(KMMeshNode *mesh);

protected:
    void apply(Direction direction) override;

private:
    QList<KMMeshNode::ModifierEntry> m_before;
    QList<KMMeshNode::ModifierEntry> m_after;
};

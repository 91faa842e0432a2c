#include "mesh/KMBuildModifierCommand.h"

#include "mesh/KMMeshModifier.h"

buildModifierCommand::buildModifierCommand(KMMeshNode *mesh)
    : KMMeshCommand(tr("Build Modifier"), mesh)
    , m_before(mesh->modifiers())
    , m_after(mesh->chainInTree())
{
    for (const auto &chain : {m_before, m_after}) {
        for (const KMMeshNode::ModifierEntry &entry : chain)
            touch(entry.second->modifierNode());
    }
}

void buildModifierCommand::apply(Direction direction)
{
    mesh()->linkChain(direction == Direction::Redo ? m_after : m_before);
}

#include "core/KMShaderCommands.h"

editShaderNodeCommand::editShaderNodeCommand(KMBasicShaderNode *shader, const KMBasicShader &values)
    : KMUndoCommand(tr("Edit BasicShaderNode"), shader)
    , m_shader(shader)
    , m_before(shader->values())
    , m_after(values)
{
}

void editShaderNodeCommand::apply(Direction direction)
{
    m_shader->setValues(direction == Direction::Redo ? m_after : m_before);
}

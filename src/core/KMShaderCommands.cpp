#include "core/KMShaderCommands.h"

editShaderNodeCommand::editShaderNodeCommand(KMBasicShaderNode *shader, const KMBasicShader &values)
    : changeValueCommand(tr("Edit BasicShaderNode"), shader, shader->values(), values)
    , m_shader(shader)
{
}

void editShaderNodeCommand::write(const KMBasicShader &values)
{
    m_shader->setValues(values);
}

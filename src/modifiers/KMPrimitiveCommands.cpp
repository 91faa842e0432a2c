#include "modifiers/KMPrimitiveCommands.h"

primAssignShaderCommand::primAssignShaderCommand(KMPrimitiveNode *primitive, int shader)
    : changeValueCommand(tr("Assign Shader"), primitive, primitive->shader(), shader)
    , m_primitive(primitive)
{
}

void primAssignShaderCommand::write(const int &shader)
{
    m_primitive->setShader(shader);
}

#include "core/KMShaderNode.h"

#include "core/KMNodeType.h"
#include "core/KMShelfCommands.h"
#include "core/KMSolution.h"

KMShaderNode::KMShaderNode()
{
    setType(KMNodeType::ShaderFlag);
}

void KMShaderNode::pushAddCommand()
{
    gSolution->push(new addShaderNodeCommand(this));
}

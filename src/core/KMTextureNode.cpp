#include "core/KMTextureNode.h"

#include "core/KMNodeType.h"
#include "core/KMShelfCommands.h"
#include "core/KMSolution.h"

KMTextureNode::KMTextureNode()
{
    setType(KMNodeType::TextureFlag);
}

void KMTextureNode::pushAddCommand()
{
    gSolution->push(new addTextureNodeCommand(this));
}

#include "core/KMPbrShaderNode.h"

#include "core/KMNodeType.h"

KMPbrShaderNode::KMPbrShaderNode()
{
    setType(KMNodeType::PbrShader);
    setName(tr("PbrShader"));
}

KMContainerNode *KMPbrShaderNode::clone() const
{
    auto *copy = new KMPbrShaderNode;
    copy->setName(name());
    copy->setEnName(enName());
    cloneTagsTo(copy);
    return copy;
}

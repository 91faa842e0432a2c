#include "core/KMNodeClone.h"

#include "core/KMContainerNode.h"
#include "core/KMNodeType.h"

namespace {

bool isCloneable(int type)
{
    switch (type) {
    case KMNodeType::BoolContainer:
    case KMNodeType::IntContainer:
    case KMNodeType::FloatContainer:
    case KMNodeType::Null:
    case KMNodeType::Mesh:
    case KMNodeType::BoneContainer:
    case KMNodeType::BluePrint:
        return true;
    default:
        return isPrimitive(type) || isModifier(type);
    }
}

} // namespace

KMNode *cloneNode(KMNode *node)
{
    return node && isCloneable(node->type()) ? nodeAs<KMContainerNode>(node)->clone() : nullptr;
}

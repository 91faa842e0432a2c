#include "rig/KMDisplayAnchorNode.h"

#include "core/KMNodeType.h"

KMDisplayAnchorNode::KMDisplayAnchorNode()
{
    setType(KMNodeType::DisplayAnchor);
    setName(tr("AnchorDisp"));
}

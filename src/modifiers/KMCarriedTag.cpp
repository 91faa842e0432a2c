#include "modifiers/KMCarriedTag.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"

void KMCarriedTag::markChanged()
{
    if (!owner() || owner()->type() != KMNodeType::Mesh)
        return;
    auto *mesh = nodeAs<KMMeshNode>(owner());
    mesh->markDirty(KMMeshDirty::Positions);
    mesh->markNotify(Changed);
}

#include "render/KMRenderMask.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "render/KMCameraNode.h"
#include "render/KMViewFilter.h"

namespace {

using namespace KMRenderMask;

const KMNode *activeNode()
{
    return gSolution ? gSolution->currentNode() : nullptr;
}

quint32 frontMask(const KMCameraNode &camera, bool current)
{
    if (!camera.viewFlag(KMCameraNode::FrontOnly))
        return 0;
    if (current || !KMViewFilter::isOn(KMViewFilter::CullingCurrentOnly))
        return FrontOnly;
    return CullBack;
}

quint32 elementMask(const KMCameraNode &camera, bool current)
{
    quint32 mask = camera.viewFlag(KMCameraNode::ShowFaces) ? quint32(Faces) : 0u;
    if (!current && !KMViewFilter::isOn(KMViewFilter::UnselectedElements))
        return mask;
    if (camera.viewFlag(KMCameraNode::ShowVertices))
        mask |= Vertices | UVVertices;
    if (camera.viewFlag(KMCameraNode::ShowEdges))
        mask |= Edges | UVEdges;
    return mask;
}

/// What a result shows depends on its place in the chain and on what the user works at.
quint32 resultMask(const KMMeshNode &mesh, const KMCameraNode &camera, quint32 mask)
{
    KMMeshModifier &owner = *mesh.ownerModifier();
    const KMMeshNode *cage = owner.source();
    mask &= ~quint32(Vertices | UVEdges | UVVertices);
    const bool isSymmetry = owner.modifierNode()->type() == KMNodeType::ModSym;
    if (!isSymmetry)
        mask &= ~quint32(Edges);
    if (owner.next() || !cage || !cage->isVisible())
        return mask | BoundsOnly;
    if (isSymmetry || !KMViewFilter::isOn(KMViewFilter::CurrentModEdge))
        return mask;
    if (cage == activeNode())
        mask |= Edges | UVEdges | CageEdges | frontMask(camera, true);
    if (owner.modifierNode() == activeNode())
        mask |= UVEdges;
    return mask;
}

} // namespace

bool KMRenderMask::isShown(const KMMeshNode &mesh)
{
    if (!mesh.ownerModifier())
        return mesh.isVisible();
    const KMMeshNode *cage = mesh.ownerModifier()->source();
    return cage && cage->isVisible() && (!KMMeshTargets::isControl(mesh) || isCurrent(mesh));
}

bool KMRenderMask::isCurrent(const KMMeshNode &mesh)
{
    const KMNode *active = activeNode();
    if (mesh.isSelected() || (active && active == &mesh))
        return true;
    if (const KMContainerNode *owner = mesh.ownerNode())
        return owner->isSelected() || owner == active;
    const KMContainerNode *parent = KMTreeWidget::parentNodeOf(&mesh);
    return parent && parent == active && isModifier(parent->type());
}

quint32 KMRenderMask::of(const KMMeshNode &mesh, const KMCameraNode &camera)
{
    quint32 mask = 0;
    if (isShown(mesh)) {
        const bool current = isCurrent(mesh);
        mask = frontMask(camera, current) | elementMask(camera, current);
        if (!mesh.modifiers().isEmpty())
            mask |= BoundsOnly;
    }
    if (KMMeshTargets::isControl(mesh)) {
        const bool hasMarks = mask & Faces && KMMeshTargets::hasOwnTopology(mesh);
        return (mask & (Vertices | Edges)) | (hasMarks ? MarkedFaces : 0u);
    }
    return mesh.ownerModifier() ? resultMask(mesh, camera, mask) : mask;
}

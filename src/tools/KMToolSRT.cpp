#include "tools/KMToolSRT.h"

#include "core/KMNodePropertyCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "render/KMPicker.h"
#include "tools/KMBoneDrag.h"
#include "tools/KMBoneTargets.h"
#include "tools/KMNodeDrag.h"
#include "tools/KMToolKind.h"

KMToolSRT::KMToolSRT(QWidget *parent)
    : KMToolUniv(KMToolKind::SRT,
                 std::make_unique<KMElementDrag>(std::make_unique<KMNodeDrag>(), KMBoneDrag::Reach::Wholes), parent)
{
}

KMPickRequest KMToolSRT::requestFor(float margin) const
{
    KMPickRequest request;
    request.margin = margin;
    request.wantVertex = request.wantEdge = request.wantFace = true;
    request.includeChildren = true;
    return request;
}

/// A result stands for its node as well as any mesh.
bool KMToolSRT::pick(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request) const
{
    return KMPicker::pick(camera, position, request);
}

/// Of the result of a modifier it is the mesh at the start of the chain.
bool KMToolSRT::clickElement(const KMPickRequest &hit, Qt::KeyboardModifiers modifiers)
{
    KMContainerNode *node = hit.mesh;
    const KMMeshModifier *modifier = hit.mesh->ownerModifier();
    if (modifier && !KMMeshTargets::isControl(*hit.mesh))
        node = modifier->source() ? modifier->source() : modifier->modMesh();
    else if (hit.mesh->ownerNode())
        node = hit.mesh->ownerNode();
    if (!node->item() || node->isLocked())
        return false;
    if (modifiers & (Qt::ShiftModifier | Qt::ControlModifier))
        node->item()->setSelected(modifiers & Qt::ShiftModifier || !node->isSelected());
    else if (!node->isSelected())
        gSolution->push(new selectNodeCommand(node));
    updateCentre();
    return node->isSelected();
}

/// A bone is a whole object here.
bool KMToolSRT::clickBone(const KMBonePicker::Hit &hit, Qt::KeyboardModifiers modifiers)
{
    KMBonePicker::Hit whole = hit;
    whole.part = KMBonePicker::Part::Body;
    return KMToolUniv::clickBone(whole, modifiers);
}

void KMToolSRT::clickNothing()
{
    if (!KMBoneTargets::selected().isEmpty())
        return KMBoneTargets::unselectAll();
    if (!gProject->tree()->selectedItems().isEmpty())
        gSolution->push(new selectNodeCommand(nullptr));
}

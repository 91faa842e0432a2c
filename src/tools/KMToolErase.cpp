#include "tools/KMToolErase.h"

#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMElementErase.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "mesh/KMMirrorMap.h"
#include "render/KMCameraNode.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMPicker.h"
#include "tools/KMToolKind.h"

#include <memory>

namespace {

KMPickRequest pickAt(const KMMouseEvent &event, const KMOpenGLWidget &widget)
{
    const KMEditFilter &filter = gSolution->editFilter();
    KMPickRequest request;
    request.margin = gSettings->vertexClickMargin;
    request.wantVertex = filter.vertices;
    request.wantEdge = filter.edges;
    request.wantFace = filter.faces;
    const bool isHit = KMPicker::pick(*widget.camera(), event.localPos(), request);
    if (isHit && (request.mesh->ownerNode() || !KMMeshTargets::isEditable(*request.mesh))) {
        request.clearResult(); // what a click doesn't delete isn't lit up
        KMPicker::clearHot();
    }
    return request;
}

} // namespace

KMToolErase::KMToolErase(QWidget *parent)
    : KMTool(KMToolKind::Erase, parent)
{
}

/// What lights up is what a click deletes.
bool KMToolErase::mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (event->buttons() != Qt::NoButton)
        return false;
    pickAt(*event, *widget);
    return true;
}

bool KMToolErase::mousePress(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (event->buttons() != Qt::LeftButton || event->modifiers() & Qt::AltModifier)
        return false;
    const KMPickRequest hit = pickAt(*event, *widget);
    KMPicker::clearHot();
    if (hit.isHit())
        erase(hit, widget->camera()->pixelScale(gSettings->symmetryMargin));
    return true;
}

void KMToolErase::erase(const KMPickRequest &hit, float mirrorTolerance)
{
    std::unique_ptr<KMMirrorMap> mirror;
    if (gSolution->editFilter().symmetry)
        mirror = std::make_unique<KMMirrorMap>(*hit.mesh, mirrorTolerance);
    if (hit.vertex >= 0)
        KMElementErase::eraseVertex(*hit.mesh, hit.vertex, mirror.get());
    else if (hit.edge)
        KMElementErase::eraseEdge(*hit.mesh, hit.edge->index0, hit.edge->index1, mirror.get());
    else
        KMElementErase::eraseFace(*hit.mesh, hit.face, mirror.get());
}

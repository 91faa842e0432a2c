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
#include "tools/KMBoneDrag.h"
#include "tools/KMBoneTargets.h"
#include "tools/KMElementClick.h"
#include "tools/KMToolCross.h"
#include "tools/KMToolKind.h"

#include <memory>

namespace {

/// An element, or a bone in place of it.
KMBonePicker::Hit pickAt(const KMMouseEvent &event, const KMOpenGLWidget &widget, KMPickRequest &request)
{
    const KMBonePicker::Hit bone = KMBoneTargets::pickBefore(*widget.camera(), event.localPos());
    if (bone.isHit())
        return bone;
    const KMEditFilter &filter = gSolution->editFilter();
    request.margin = gSettings->vertexClickMargin;
    request.wantVertex = filter.vertices;
    request.wantEdge = filter.edges;
    request.wantFace = filter.faces;
    if (KMElementClick::pick(*widget.camera(), event.localPos(), request))
        return {};
    return KMBoneTargets::pickBehind(*widget.camera(), event.localPos());
}

bool canErase(const KMPickRequest &hit)
{
    return hit.isHit() && KMMeshTargets::hasOwnTopology(*hit.mesh) && KMMeshTargets::isEditable(*hit.mesh);
}

} // namespace

KMToolErase::KMToolErase(QWidget *parent)
    : KMTool(KMToolKind::Erase, parent)
{
}

void KMToolErase::initialize()
{
    KMTool::initialize();
    m_marker = new KMToolCross;
    addMesh(ScreenLines, m_marker);
}

void KMToolErase::finalize()
{
    m_marker = nullptr;
    KMTool::finalize();
}

/// The element may be gone.
void KMToolErase::refresh()
{
    m_hover = {};
}

void KMToolErase::cancel()
{
    m_hover = {};
}

void KMToolErase::leave(QEvent *, KMOpenGLWidget *)
{
    m_hover = {};
    KMPicker::clearHot();
    KMBonePicker::clearHot();
}

void KMToolErase::draw(KMOpenGLWidget *widget)
{
    KMTool::draw(widget);
    const KMCameraNode *camera = widget ? widget->camera() : nullptr;
    if (!m_marker)
        return;
    const bool hasPlace = camera && !camera->isUV() && m_hover.isHit();
    const kvm::Vector3 window = hasPlace ? camera->worldToWindow(m_hover.point) : kvm::Vector3(0, 0, -1);
    m_marker->setVisible(window.z >= 0.0f && window.z <= 1.0f);
    if (m_marker->isVisible())
        m_marker->moveTo({double(window.x), double(window.y)});
}

/// What lights up is what a click deletes.
bool KMToolErase::mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (event->buttons() != Qt::NoButton)
        return false;
    KMPickRequest hit;
    const KMBonePicker::Hit bone = pickAt(*event, *widget, hit);
    const bool isOtherBone = KMBonePicker::setHot(bone);
    if (!canErase(hit)) {
        hit.clearResult();
        KMPicker::clearHot();
    }
    const bool isOther = hit.mesh != m_hover.mesh || hit.vertex != m_hover.vertex || hit.edge != m_hover.edge
                         || hit.face != m_hover.face || (hit.isHit() && hit.point != m_hover.point) || isOtherBone;
    m_hover = hit;
    return isOther;
}

bool KMToolErase::mousePress(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (event->buttons() != Qt::LeftButton || event->modifiers() & Qt::AltModifier)
        return false;
    KMPickRequest hit;
    const KMBonePicker::Hit bone = pickAt(*event, *widget, hit);
    KMPicker::clearHot();
    KMBonePicker::clearHot();
    if (bone.isHit())
        KMBoneTargets::deleteBone(bone.bone, KMBoneDrag::mirrorTolerance(*widget->camera(), bone.point));
    else if (canErase(hit))
        erase(hit, widget->camera()->pixelScale(gSettings->symmetryMargin));
    else if (hit.isHit())
        KMElementClick::tellWhyFixed(*hit.mesh);
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

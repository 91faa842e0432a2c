// What the transform tools do with bones.

#include "render/KMCameraNode.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMPicker.h"
#include "tools/KMBoneTargets.h"
#include "tools/KMHandleCode.h"
#include "tools/KMToolUniv.h"

using namespace KMHandleCode;

bool KMToolUniv::pickAny(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request,
                         KMBonePicker::Hit &bone) const
{
    bone = KMBoneTargets::pickBefore(camera, position);
    if (bone.isHit()) {
        KMPicker::clearHot();
        return true;
    }
    if (pick(camera, position, request))
        return true;
    bone = KMBoneTargets::pickBehind(camera, position);
    return bone.isHit();
}

void KMToolUniv::pressBone(const KMBonePicker::Hit &hit, const KMMouseEvent &event)
{
    m_widget->camera()->setPivot(hit.point);
    m_isAtBone = true;
    if (clickBone(hit, event.modifiers()))
        beginDrag(dragCode(hit), hit.point, event, nullptr);
    else
        m_widget = nullptr;
}

bool KMToolUniv::followsPose() const
{
    return KMBoneTargets::container();
}

int KMToolUniv::dragCode(const KMBonePicker::Hit &) const
{
    return m_handleMode & Translates ? Move | AsItIs : int(Move);
}

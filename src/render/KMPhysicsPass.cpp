#include "render/KMPhysicsPass.h"

#include "core/KMNodeType.h"
#include "core/KMSettings.h"
#include "mesh/KMMeshNode.h"
#include "render/KMBonePicker.h"
#include "render/KMCameraNode.h"
#include "render/KMViewFilter.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMTagJoint.h"

namespace {

constexpr double disabledOpacity = 0.35;

QColor colorOf(const KMTagBase &tag)
{
    return gSettings->displayColor(tag.isSelected() ? DP_SEL_PHYS : DP_ACT_PHYS);
}

QColor colorOf(const KMTagRigidBody &body)
{
    QColor color = colorOf(static_cast<const KMTagBase &>(body));
    const RigidBodyData &data = body.parameters();
    if (!body.isSelected()) {
        const float circle = color.hsvHueF() < 0.0 ? 0.0f : float(color.hsvHueF());
        const float step = float(data.group & (KMTagRigidBody::GroupCount - 1)) / KMTagRigidBody::GroupCount;
        const float hue = circle + step;
        color.setHsvF(double(hue < 1.0f ? hue : hue - 1.0f), color.hsvSaturationF(), color.valueF(), color.alphaF());
    }
    if (!data.enabled)
        color.setAlphaF(color.alphaF() * disabledOpacity);
    return color;
}

void addWire(KMGuideBatch &batch, const KMMeshNode &wire, const QColor &color)
{
    for (const KMFace *line : wire.faces()) {
        if (line)
            batch.addLine(wire.position(line->indices[0]), wire.position(line->indices[1]), color);
    }
}

} // namespace

void KMPhysicsPass::draw(KMRenderer &renderer, const KMCameraNode &camera)
{
    if (camera.isUV())
        return;
    m_batch.clear();
    for (const KMBoneContainer *container : KMBonePicker::shownContainers()) {
        for (const KMBone *bone : container->bones()) {
            for (int i = 0; KMBonePicker::isShown(*bone) && i < bone->tagCount(); ++i)
                addTag(*bone->tag(i));
        }
    }
    m_batch.draw(renderer, camera);
}

void KMPhysicsPass::addTag(const KMTagBase &tag)
{
    if (tag.isDeleted())
        return;
    if (tag.type() == KMNodeType::TagRigidBody && KMViewFilter::isOn(KMViewFilter::RigidBody)) {
        const auto &body = static_cast<const KMTagRigidBody &>(tag);
        addWire(m_batch, *body.gizmo(), colorOf(body));
    } else if (tag.type() == KMNodeType::TagJoint && KMViewFilter::isOn(KMViewFilter::Joint)) {
        addWire(m_batch, *static_cast<const KMTagJoint &>(tag).gizmo(), colorOf(tag));
    }
}

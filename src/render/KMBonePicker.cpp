#include "render/KMBonePicker.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "render/KMCameraNode.h"
#include "render/KMPickRay.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"

#include <QLineF>
#include <QPointer>

#include <algorithm>

namespace KMBonePicker {

namespace {

constexpr double leastEndRadius = 3.0;  // pixels
constexpr double shareOfEnds = 1.0 / 3; // of the length on the screen

QPointer<KMBone> hotBone;
Hit hotHit;

bool isInView(const kvm::Vector3 &window)
{
    return window.z >= 0.0f && window.z <= 1.0f;
}

QPointF pointOf(const kvm::Vector3 &window)
{
    return {double(window.x), double(window.y)};
}

/// One bone as the view shows it.
class Candidate
{
public:
    Candidate(KMBone *bone, const KMCameraNode &camera, const QPointF &position)
        : m_bone(bone)
        , m_camera(camera)
        , m_position(position)
        , m_head(camera.worldToWindow(bone->head()))
        , m_tail(camera.worldToWindow(bone->tail()))
    {
    }

    Hit hit() const
    {
        if (!isInView(m_head) || !isInView(m_tail))
            return isInView(m_head) ? endHit(Part::Head, m_bone->head(), m_head, double(m_bone->pickRadius())) : Hit();
        const double length = QLineF(pointOf(m_head), pointOf(m_tail)).length();
        const double radius = double(m_bone->pickRadius());
        const bool isShort = !m_bone->isPoint() && m_bone->lengthScale() > 0.0f;
        const double ends = isShort ? qBound(leastEndRadius, length * shareOfEnds, radius) : radius;
        const Hit head = endHit(Part::Head, m_bone->head(), m_head, ends);
        if (m_bone->isPoint())
            return head;
        const Hit tail = endHit(Part::Tail, m_bone->tail(), m_tail, ends);
        if (head.isHit() || tail.isHit())
            return tail.distance < head.distance ? tail : head;
        return bodyHit(length, radius);
    }

private:
    Hit endHit(Part part, const kvm::Vector3 &point, const kvm::Vector3 &window, double radius) const
    {
        const double away = QLineF(pointOf(window), m_position).length();
        return away <= radius ? Hit{m_bone, part, point, float(away)} : Hit();
    }

    Hit bodyHit(double length, double radius) const
    {
        if (length <= 0.0)
            return {};
        const QPointF along = pointOf(m_tail) - pointOf(m_head);
        const double share =
            qBound(0.0, QPointF::dotProduct(m_position - pointOf(m_head), along) / (length * length), 1.0);
        const double away = QLineF(pointOf(m_head) + along * share, m_position).length();
        if (away > radius)
            return {};
        // Depths don't run evenly along it.
        const KMPickRay ray(m_camera, pointOf(m_head) + along * share);
        const double depths[] = {ray.depthOf(m_bone->head()), ray.depthOf(m_bone->tail())};
        const double weights[] = {1.0 - share, share};
        return {m_bone, Part::Body, ray.pointAt(ray.depthBetween(depths, weights, 2)), float(away)};
    }

    KMBone *m_bone;
    const KMCameraNode &m_camera;
    QPointF m_position;
    kvm::Vector3 m_head; // in the window
    kvm::Vector3 m_tail;
};

/// Ends before bodies; then the nearest, and of the ends that share a joint the head.
bool isBetter(const Hit &a, const Hit &b)
{
    if (!b.isHit() || (a.part == Part::Body) != (b.part == Part::Body))
        return !b.isHit() || b.part == Part::Body;
    if (a.distance != b.distance)
        return a.distance < b.distance;
    return a.part == Part::Head && b.part == Part::Tail;
}

} // namespace

bool operator==(const Hit &a, const Hit &b)
{
    return a.bone == b.bone && a.part == b.part;
}

QList<KMBoneContainer *> shownContainers()
{
    QList<KMBoneContainer *> shown;
    if (!gProject)
        return shown;
    for (KMCtrlNode *ctrl : gProject->ctrlsInTree()) {
        if (ctrl->type() == KMNodeType::BoneContainer && ctrl->isVisible())
            shown << static_cast<KMBoneContainer *>(ctrl);
    }
    return shown;
}

bool isShown(const KMBone &bone)
{
    return !bone.isDeleted() && bone.isVisible() && bone.container() && bone.container()->isVisible();
}

bool isPickable(const KMBone &bone)
{
    return isShown(bone) && !bone.isLocked() && !bone.container()->isLocked();
}

Hit pickBone(const KMCameraNode &camera, const QPointF &position, const KMBoneContainer *only)
{
    Hit best;
    for (const KMBoneContainer *container : shownContainers()) {
        if (only && container != only)
            continue;
        for (KMBone *bone : container->bones()) {
            if (!isPickable(*bone))
                continue;
            const Hit hit = Candidate(bone, camera, position).hit();
            if (hit.isHit() && isBetter(hit, best))
                best = hit;
        }
    }
    return best;
}

Hit hot()
{
    return hotBone ? hotHit : Hit();
}

bool setHot(const Hit &hit)
{
    const bool isOther = !(hit == hot());
    hotHit = hit;
    hotBone = hit.bone;
    return isOther;
}

void clearHot()
{
    setHot({});
}

} // namespace KMBonePicker

#include "render/KMBonePicker.h"

#include "render/KMCameraNode.h"
#include "render/KMPickRay.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneShape.h"

#include <QLineF>
#include <QPointer>

#include <algorithm>
#include <cmath>

namespace KMBonePicker {

namespace {

constexpr double leastEndRadius = 3.0;  // pixels
constexpr double shareOfEnds = 1.0 / 3; // of the length on the screen
constexpr double widest = 0.1;          // of a solid body, as a share of its length: so far from head and axis
constexpr int clipSteps = 24;           // as fine as a float

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
        , m_head{bone->head(), camera.worldToWindow(bone->head())}
        , m_tail{bone->tail(), camera.worldToWindow(bone->tail())}
    {
    }

    Hit hit() const
    {
        const bool hasHead = isInView(m_head.window);
        const bool hasTail = isInView(m_tail.window);
        if (!hasHead && !hasTail)
            return {};
        // One end may lie behind the eye, while the rest of the bone is drawn.
        const End from = hasHead ? m_head : lastInView(m_tail, m_head);
        const End to = hasTail ? m_tail : lastInView(m_head, m_tail);
        const double length = QLineF(pointOf(from.window), pointOf(to.window)).length();
        const double radius = double(m_bone->pickRadius());
        const bool isShort = !m_bone->isPoint() && m_bone->lengthScale() > 0.0f;
        const double ends = isShort ? qBound(leastEndRadius, length * shareOfEnds, radius) : radius;
        const Hit head = hasHead ? endHit(Part::Head, m_head, ends) : Hit();
        if (m_bone->isPoint())
            return head;
        const Hit tail = hasTail ? endHit(Part::Tail, m_tail, ends) : Hit();
        if (head.isHit() && tail.isHit())
            return tail.distance < head.distance ? tail : head;
        if (head.isHit() || tail.isHit())
            return head.isHit() ? head : tail;
        return bodyHit(from, to, radius);
    }

private:
    struct End
    {
        kvm::Vector3 point;
        kvm::Vector3 window;
    };

    End lastInView(End seen, End hidden) const
    {
        for (int i = 0; i < clipSteps; ++i) {
            const kvm::Vector3 middle = (seen.point + hidden.point) * 0.5f;
            const End half{middle, m_camera.worldToWindow(middle)};
            (isInView(half.window) ? seen : hidden) = half;
        }
        return seen;
    }

    Hit endHit(Part part, const End &end, double radius) const
    {
        const double away = QLineF(pointOf(end.window), m_position).length();
        return away <= radius ? Hit{m_bone, part, end.point, float(away)} : Hit();
    }

    /// How far the drawn body reaches from its axis there, as a share of its length. The corners of a solid one stand
    /// at a tenth of its way.
    double halfWidthAt(double share) const
    {
        if (m_bone->viewType() != KMBoneShape::Polygon)
            return 0.0;
        return widest * (share < widest ? share / widest : (1.0 - share) / (1.0 - widest));
    }

    Hit bodyHit(const End &from, const End &to, double radius) const
    {
        const QPointF start = pointOf(from.window);
        const QPointF along = pointOf(to.window) - start;
        const double square = QPointF::dotProduct(along, along);
        if (!(square > 0.0))
            return {};
        const double share = qBound(0.0, QPointF::dotProduct(m_position - start, along) / square, 1.0);
        const QPointF place = start + along * share;
        const double away = QLineF(place, m_position).length();
        if (away > qMax(radius, halfWidthAt(share) * std::sqrt(square)))
            return {};
        // Depths don't run evenly along it.
        const KMPickRay ray(m_camera, place);
        const double depths[] = {ray.depthOf(from.point), ray.depthOf(to.point)};
        const double weights[] = {1.0 - share, share};
        return {m_bone, Part::Body, ray.pointAt(ray.depthBetween(depths, weights, 2)), float(away)};
    }

    KMBone *m_bone;
    const KMCameraNode &m_camera;
    QPointF m_position;
    End m_head;
    End m_tail;
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
    QList<KMBoneContainer *> rigs = KMBoneContainer::inTree();
    const auto isHidden = [](const KMBoneContainer *rig) { return !rig->isVisible(); };
    rigs.erase(std::remove_if(rigs.begin(), rigs.end(), isHidden), rigs.end());
    return rigs;
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

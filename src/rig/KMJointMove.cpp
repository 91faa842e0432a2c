#include "rig/KMJointMove.h"

#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"

#include <algorithm>
#include <cmath>
#include <limits>

using kvm::Quaternion;
using kvm::Vector3;

namespace {

constexpr float attachedShare = 1e-3f; // of a length: files round
constexpr float rigidShare = 1e-6f;
constexpr float sideShare = 1e-3f; // a side that is nearer by less than that doesn't lead before the front one

Vector3 tailAtRest(const KMBoneRest &rest, const KMBone &bone)
{
    return bone.isPoint() ? rest.head : rest.tail();
}

} // namespace

bool KMJointMove::isAttached(const KMBone &child)
{
    const KMBone *parent = child.parentBone();
    if (!parent || child.isFloating())
        return false;
    const float length = (parent->restTail() - parent->restHead()).length();
    return (child.restHead() - parent->restTail()).length() <= attachedShare * (1.0f + length);
}

KMJointMove::KMJointMove(KMBoneContainer *container, const QVector<Grabbed> &grabbed, const Options &options,
                         const Vector3 &anchor)
    : m_container(container)
    , m_plane(container->mirrorPlane())
{
    const QList<KMBone *> &bones = container->bones();
    m_points.resize(2 * bones.size());
    for (int i = 0; i < bones.size(); ++i) {
        m_points[pointOf(i, Head)].start = bones[i]->head();
        m_points[pointOf(i, Tail)].start = bones[i]->tail();
    }
    grab(bones, grabbed);
    closeJoints(bones);
    if (options.takesChildren)
        carryChildren(bones);
    if (options.mirrors) {
        KMBoneEdit::pairForEdits(container, options.tolerance);
        pair(bones, anchor, options.tolerance);
    }
    m_movedAt.fill(-1, bones.size());
    QVector<bool> isSeen(bones.size());
    for (int i = 0; i < bones.size(); ++i) {
        order(i, isSeen);
        const bool moves = m_points[pointOf(i, Head)].moves() || m_points[pointOf(i, Tail)].moves();
        if (bones[i]->isLocked() || !moves)
            continue;
        m_movedAt[i] = m_bones.size();
        m_bones.append({bones[i], i, bones[i]->rest(), bones[i]->solvedPose().rotation});
    }
}

void KMJointMove::order(int place, QVector<bool> &isSeen)
{
    if (place < 0 || isSeen[place])
        return;
    isSeen[place] = true;
    order(parentOf(place), isSeen);
    order(leaderOf(place, Head), isSeen);
    order(leaderOf(place, Tail), isSeen);
    m_order << place;
}

int KMJointMove::parentOf(int place) const
{
    const KMBone *parent = m_container->bones().at(place)->parentBone();
    return parent ? parent->boneIndex() : -1;
}

/// An end that stays where it is shown may have to move at rest for that, as it does on the other side.
int KMJointMove::leaderOf(int place, End end) const
{
    const Point &point = m_points[pointOf(place, end)];
    const int leader = point.moves() ? point.leader : m_points[pointOf(place, end == Head ? Tail : Head)].leader;
    return leader < 0 ? -1 : leader / 2;
}

void KMJointMove::grab(const QList<KMBone *> &bones, const QVector<Grabbed> &grabbed)
{
    for (const Grabbed &entry : grabbed) {
        const int i = bones.indexOf(entry.bone);
        if (i < 0)
            continue;
        m_points[pointOf(i, Head)].isGrabbed = entry.ends & KMBone::HeadSelected;
        m_points[pointOf(i, Tail)].isGrabbed = entry.ends & KMBone::TailSelected;
    }
}

/// Through points, whose ends are one, a joint may reach on to others.
void KMJointMove::closeJoints(const QList<KMBone *> &bones)
{
    bool isGrowing = true;
    const auto join = [&](int a, int b) {
        if (m_points[a].isGrabbed == m_points[b].isGrabbed)
            return;
        m_points[a].isGrabbed = m_points[b].isGrabbed = true;
        isGrowing = true;
    };
    while (isGrowing) {
        isGrowing = false;
        for (int i = 0; i < bones.size(); ++i) {
            if (bones[i]->isPoint())
                join(pointOf(i, Head), pointOf(i, Tail));
            if (isAttached(*bones[i]))
                join(pointOf(i, Head), pointOf(bones[i]->parentBone()->boneIndex(), Tail));
        }
    }
}

void KMJointMove::carryChildren(const QList<KMBone *> &bones)
{
    QVector<int> carriers(bones.size(), -1);
    for (int i = 0; i < bones.size(); ++i) {
        const KMBone *parent = bones[i]->parentBone();
        const int above = parent ? parent->boneIndex() : -1;
        if (isGrabbed(i, Head))
            carriers[i] = pointOf(i, Head);
        else if (above >= 0 && carriers[above] >= 0)
            carriers[i] = carriers[above];
        else if (above >= 0 && isGrabbed(above, Tail))
            carriers[i] = pointOf(above, Tail);
        for (const End end : {Head, Tail}) {
            Point &point = m_points[pointOf(i, end)];
            if (!point.isGrabbed)
                point.carrier = carriers[i];
        }
    }
}

/// Whether what is grabbed is held by the side behind the plane: that of the grabbed ends next to the anchor.
bool KMJointMove::isAnchorBehind(const QList<KMBone *> &bones, const Vector3 &anchor) const
{
    float nearest[2] = {std::numeric_limits<float>::max(), std::numeric_limits<float>::max()};
    for (int i = 0; i < m_points.size(); ++i) {
        if (!m_points[i].isGrabbed)
            continue;
        const KMBone *bone = bones[i / 2];
        const float side = m_plane.distance(i % 2 == Head ? bone->restHead() : bone->restTail());
        float &least = nearest[side < 0.0f];
        least = std::min(least, (m_points[i].start - anchor).length());
    }
    return nearest[1] < nearest[0] * (1.0f - sideShare);
}

/// What lies where is asked at rest: a pose needn't be symmetric.
void KMJointMove::pair(const QList<KMBone *> &bones, const Vector3 &anchor, float tolerance)
{
    const bool isLeaderBehind = isAnchorBehind(bones, anchor);
    for (int i = 0; i < bones.size(); ++i) {
        for (const End end : {Head, Tail}) {
            Point &point = m_points[pointOf(i, end)];
            if (!point.moves() || point.leader >= 0)
                continue;
            const float distance = m_plane.distance(end == Head ? bones[i]->restHead() : bones[i]->restTail());
            point.isOnPlane = std::abs(distance) < tolerance;
            const KMBone *partner = bones[i]->mirrorBone();
            if (!partner || partner == bones[i])
                continue;
            Point &image = m_points[pointOf(partner->boneIndex(), end)];
            if (!image.moves() || (distance < 0.0f) == isLeaderBehind)
                image.leader = pointOf(i, end);
        }
    }
    // A point that leads another one doesn't follow it.
    for (Point &point : m_points) {
        if (point.leader >= 0 && m_points[point.leader].leader >= 0)
            m_points[point.leader].leader = -1;
    }
}

void KMJointMove::place(const Motion &motion)
{
    for (Point &point : m_points) {
        point.now = point.start;
        if (point.leader >= 0 || !point.moves())
            continue;
        if (point.isGrabbed || motion.isRigid) {
            point.now = motion.map(point.start);
        } else {
            const Vector3 &joint = m_points[point.carrier].start;
            point.now = point.start + (motion.map(joint) - joint);
        }
    }
}

Quaternion KMJointMove::reflectedTurn(const Quaternion &turn) const
{
    const Vector3 axis = -m_plane.reflectedWay(turn.vector());
    return {turn.w, axis.x, axis.y, axis.z};
}

/// A bone hangs on its parent, so it is shown where that takes it.
Vector3 KMJointMove::shownWay(int place, const Vector3 &atRest, const QVector<Way> &ways) const
{
    const int parent = parentOf(place);
    if (parent < 0)
        return atRest;
    const Quaternion pose = m_container->bones().at(parent)->solvedPose().rotation;
    return ways[parent].shown + pose.rotate(atRest - ways[parent].head);
}

Vector3 KMJointMove::headOf(const Moved &moved, const QVector<Way> &ways) const
{
    const Point &point = m_points[pointOf(moved.place, Head)];
    const int leader = leaderOf(moved.place, Head);
    if (leader >= 0)
        return moved.before.head + m_plane.reflectedWay(ways[leader].head);
    Vector3 way = point.now - point.start;
    const int parent = parentOf(moved.place);
    if (parent >= 0) {
        // What the parent's own move does to it doesn't have to be done again.
        const Quaternion pose = m_container->bones().at(parent)->solvedPose().rotation;
        way = pose.conjugate().rotate(way - ways[parent].shown) + ways[parent].head;
    }
    const Vector3 head = moved.before.head + way;
    return point.isOnPlane ? head - m_plane.normal() * m_plane.distance(head) : head;
}

Vector3 KMJointMove::tailOf(const Moved &moved, const Vector3 &head, const QVector<Way> &ways) const
{
    const Point &point = m_points[pointOf(moved.place, Tail)];
    const int leader = leaderOf(moved.place, Tail);
    if (leader >= 0)
        return moved.before.tail() + m_plane.reflectedWay(ways[leader].tail);
    const Point &start = m_points[pointOf(moved.place, Head)];
    const Vector3 shownHead = start.start + shownWay(moved.place, head - moved.before.head, ways);
    const Vector3 change = (point.now - shownHead) - (point.start - start.start);
    const Vector3 tail = head + (moved.before.tail() - moved.before.head) + moved.pose.conjugate().rotate(change);
    return point.isOnPlane ? tail - m_plane.normal() * m_plane.distance(tail) : tail;
}

KMBoneRest KMJointMove::restOf(const Moved &moved, const Motion &motion, const QVector<Way> &ways) const
{
    const Point &head = m_points[pointOf(moved.place, Head)];
    const Point &tail = m_points[pointOf(moved.place, Tail)];
    KMBoneRest rest = moved.before;
    rest.head = headOf(moved, ways);
    const bool isTurned = motion.isRigid && head.moves() && tail.moves() && !head.isOnPlane && !tail.isOnPlane;
    if (isTurned && head.leader >= 0 && tail.leader >= 0) {
        rest.rotation = (reflectedTurn(ways[head.leader / 2].turn) * rest.rotation).normalized();
        return rest;
    }
    if (isTurned && head.leader < 0 && tail.leader < 0) {
        rest.rotation = (moved.pose.conjugate() * motion.turn * moved.pose * rest.rotation).normalized();
        return rest;
    }
    if (moved.bone->isPoint())
        return rest;
    const Vector3 end = tailOf(moved, rest.head, ways);
    const Vector3 before = moved.before.tail() - moved.before.head;
    const bool isSame = (end - rest.head - before).length() <= rigidShare * (before.length() + rest.head.length());
    return isSame ? rest : restBone(rest.head, end, rest);
}

/// The partners do at rest what their leaders do there: as they are shown, the two needn't be images.
void KMJointMove::apply(const Motion &motion)
{
    if (isEmpty() || !m_container)
        return;
    place(motion);
    QVector<Way> ways(m_order.size());
    for (const int place : std::as_const(m_order)) {
        Way way;
        if (m_movedAt[place] >= 0) {
            const Moved &moved = m_bones.at(m_movedAt[place]);
            const KMBoneRest rest = restOf(moved, motion, ways);
            way.head = rest.head - moved.before.head;
            way.tail = tailAtRest(rest, *moved.bone) - tailAtRest(moved.before, *moved.bone);
            way.turn = rest.rotation * moved.before.rotation.conjugate();
            moved.bone->setRest(rest);
        }
        way.shown = shownWay(place, way.head, ways);
        ways[place] = way;
    }
    m_container->refreshAfterEdit();
}

void KMJointMove::restore()
{
    if (isEmpty() || !m_container)
        return;
    for (const Moved &moved : std::as_const(m_bones))
        moved.bone->setRest(moved.before);
    m_container->refreshAfterEdit();
}

void KMJointMove::pushCommands()
{
    if (!m_container)
        return;
    for (const Moved &moved : std::as_const(m_bones)) {
        const KMBoneRest after = moved.bone->rest();
        if (after != moved.before)
            gSolution->push(new editBoneGeometryCommand(moved.bone, moved.before, after));
    }
}

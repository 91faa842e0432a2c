#include "rig/KMJointMove.h"

#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"

#include <cmath>

using kvm::Quaternion;
using kvm::Vector3;

namespace {

constexpr float attachedShare = 1e-3f; // of a length: files round
constexpr float rigidShare = 1e-6f;

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
    for (int i = 0; i < bones.size(); ++i) {
        const Point &head = m_points[pointOf(i, Head)];
        const Point &tail = m_points[pointOf(i, Tail)];
        if (bones[i]->isLocked() || !(head.moves() || tail.moves()))
            continue;
        const KMBone *parent = bones[i]->parentBone();
        m_bones.append({bones[i], i, parent ? parent->boneIndex() : -1, bones[i]->rest(),
                        bones[i]->solvedPose().rotation, head.leader >= 0 || tail.leader >= 0});
    }
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

void KMJointMove::pair(const QList<KMBone *> &bones, const Vector3 &anchor, float tolerance)
{
    const bool isAnchorBehind = m_plane.distance(anchor) < 0.0f;
    for (int i = 0; i < bones.size(); ++i) {
        for (const End end : {Head, Tail}) {
            Point &point = m_points[pointOf(i, end)];
            if (!point.moves() || point.leader >= 0)
                continue;
            point.isOnPlane = std::abs(m_plane.distance(point.start)) < tolerance;
            const KMBone *partner = bones[i]->mirrorBone();
            if (!partner || partner == bones[i])
                continue;
            Point &image = m_points[pointOf(partner->boneIndex(), end)];
            const bool isBehind = m_plane.distance(point.start) < 0.0f;
            if (!image.moves() || isBehind == isAnchorBehind)
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
        if (point.isOnPlane)
            point.now = point.now - m_plane.normal() * m_plane.distance(point.now);
    }
    for (Point &point : m_points) {
        if (point.leader >= 0)
            point.now = m_plane.reflected(m_points[point.leader].now);
    }
}

Quaternion KMJointMove::reflectedTurn(const Quaternion &turn) const
{
    const Vector3 axis = -m_plane.reflectedWay(turn.vector());
    return {turn.w, axis.x, axis.y, axis.z};
}

KMBoneRest KMJointMove::restOf(const Moved &moved, const Motion &motion) const
{
    const Point &head = m_points[pointOf(moved.place, Head)];
    const Point &tail = m_points[pointOf(moved.place, Tail)];
    KMBoneRest rest = moved.before;
    Vector3 way = head.now - head.start;
    if (moved.parent >= 0) {
        // What the parent's own move does to it doesn't have to be done again. The order is that of the list, so the
        // parent stands already.
        const KMBone &parent = *m_container->bones().at(moved.parent);
        const Point &parentHead = m_points[pointOf(moved.parent, Head)];
        way = parent.solvedPose().rotation.conjugate().rotate(way - (parentHead.now - parentHead.start));
        for (const Moved &other : m_bones) {
            if (other.place == moved.parent)
                way += parent.restHead() - other.before.head;
        }
    }
    rest.head += way;
    const Vector3 before = tail.start - head.start;
    const Vector3 after = tail.now - head.now;
    const bool isTurned = motion.isRigid && head.moves() && tail.moves();
    if (isTurned && !head.isOnPlane && !tail.isOnPlane) {
        const Quaternion turn = moved.isMirrored ? reflectedTurn(motion.turn) : motion.turn;
        rest.rotation = (moved.pose.conjugate() * turn * moved.pose * rest.rotation).normalized();
        return rest;
    }
    if (moved.bone->isPoint() || (after - before).length() <= rigidShare * before.length())
        return rest;
    return restBone(rest.head, rest.head + moved.pose.conjugate().rotate(after), rest);
}

void KMJointMove::apply(const Motion &motion)
{
    if (isEmpty())
        return;
    place(motion);
    for (const Moved &moved : std::as_const(m_bones))
        moved.bone->setRest(restOf(moved, motion));
    m_container->refreshAfterEdit();
}

void KMJointMove::restore()
{
    if (isEmpty())
        return;
    for (const Moved &moved : std::as_const(m_bones))
        moved.bone->setRest(moved.before);
    m_container->refreshAfterEdit();
}

void KMJointMove::pushCommands()
{
    for (const Moved &moved : std::as_const(m_bones)) {
        const KMBoneRest after = moved.bone->rest();
        if (after != moved.before)
            gSolution->push(new editBoneGeometryCommand(moved.bone, moved.before, after));
    }
}

// Where the bones of a move come to stand.

#include "rig/KMJointMove.h"

#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"

using kvm::Quaternion;
using kvm::Vector3;

namespace {

constexpr float rigidShare = 1e-6f;

Vector3 tailAtRest(const KMBoneRest &rest, const KMBone &bone)
{
    return bone.isPoint() ? rest.head : rest.tail();
}

} // namespace

/// What goes with followers has its place when these have theirs.
void KMJointMove::place(const Motion &motion)
{
    const auto mapped = [&](const Point &point) {
        return point.isMirrored ? m_plane.reflected(motion.map(m_plane.reflected(point.start)))
                                : motion.map(point.start);
    };
    for (Point &point : m_points)
        point.now = point.isGrabbed || (point.carrier >= 0 && motion.isRigid) ? mapped(point) : point.start;
    if (motion.isRigid)
        return;
    for (Point &point : m_points) {
        if (point.isGrabbed || point.carrier < 0)
            continue;
        const Point &joint = m_points[point.carrier];
        const Vector3 way = joint.now - joint.start;
        point.now = point.start + (point.isMirrored == joint.isMirrored ? way : m_plane.reflectedWay(way));
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
    return ways[parent].shown + poseOf(parent).rotate(atRest - ways[parent].head);
}

Quaternion KMJointMove::poseOf(int place) const
{
    return m_container->bones().at(place)->solvedPose().rotation;
}

/// At rest, of the image of an end.
Vector3 KMJointMove::imageWay(int leader, const QVector<Way> &ways) const
{
    const Way &way = ways[leader / 2];
    return m_plane.reflectedWay(leader % 2 == Head ? way.head : way.tail);
}

/// How the motion turns what a follower takes along there, as shown: at rest the two sides turn as images.
Quaternion KMJointMove::turnAt(int point, const Motion &motion) const
{
    const int follower = m_points[point].follower >= 0 ? m_points[point].follower : point;
    const int leader = leaderOf(follower);
    if (leader < 0)
        return m_points[point].isMirrored ? reflectedTurn(motion.turn) : motion.turn;
    const Quaternion pose = poseOf(leader / 2), image = poseOf(follower / 2);
    const Quaternion atRest = reflectedTurn(pose.conjugate() * turnAt(leader, motion) * pose);
    return image * atRest * image.conjugate();
}

/// Where an end has to be shown.
Vector3 KMJointMove::goalOf(int point, const Motion &motion, const QVector<Way> &ways) const
{
    const int image = imageOf(point);
    if (image < 0)
        return m_points[point].now;
    const Way &way = ways[image / 2];
    const Vector3 arm = m_points[point].start - m_points[image].start;
    const Vector3 joint = image % 2 == Head ? way.shown : way.shown + poseOf(image / 2).rotate(way.tail - way.head);
    return m_points[image].start + joint + (motion.isRigid ? turnAt(image, motion).rotate(arm) : arm);
}

Vector3 KMJointMove::headOf(const Moved &moved, const Motion &motion, const QVector<Way> &ways) const
{
    const int index = pointOf(moved.place, Head);
    const Point &point = m_points[index];
    const int leader = leaderOf(point.follower >= 0 ? point.follower : index);
    if (leader >= 0)
        return moved.before.head + imageWay(leader, ways);
    Vector3 way = goalOf(index, motion, ways) - point.start;
    const int parent = parentOf(moved.place);
    if (parent >= 0) // What the parent's own move does to it doesn't have to be done again.
        way = poseOf(parent).conjugate().rotate(way - ways[parent].shown) + ways[parent].head;
    const Vector3 head = moved.before.head + way;
    return point.isOnPlane ? head - m_plane.normal() * m_plane.distance(head) : head;
}

Vector3 KMJointMove::tailOf(const Moved &moved, const Vector3 &head, const Motion &motion,
                            const QVector<Way> &ways) const
{
    const int index = pointOf(moved.place, Tail);
    const Point &point = m_points[index];
    const int leader = leaderOf(point.follower >= 0 ? point.follower : index);
    if (leader >= 0)
        return moved.before.tail() + imageWay(leader, ways);
    const Vector3 start = m_points[pointOf(moved.place, Head)].start;
    const Vector3 shownHead = start + ways[moved.place].shown;
    const Vector3 change = (goalOf(index, motion, ways) - shownHead) - (point.start - start);
    const Vector3 tail = head + (moved.before.tail() - moved.before.head) + moved.pose.conjugate().rotate(change);
    return point.isOnPlane ? tail - m_plane.normal() * m_plane.distance(tail) : tail;
}

/// Whether the motion turns a bone as a whole. One that touches the plane is held there.
bool KMJointMove::isTurned(int place, const Motion &motion, const QVector<Way> &ways) const
{
    if (m_leaders[place] >= 0)
        return ways[m_leaders[place]].isTurned;
    const Point &head = m_points[pointOf(place, Head)];
    const Point &tail = m_points[pointOf(place, Tail)];
    const int image = imageOf(pointOf(place, Head));
    if (!motion.isRigid || head.isOnPlane || tail.isOnPlane || image != imageOf(pointOf(place, Tail)))
        return false;
    return image >= 0 || (head.moves() && tail.moves() && head.isMirrored == tail.isMirrored);
}

KMBoneRest KMJointMove::restOf(const Moved &moved, const Vector3 &head, const Motion &motion,
                               const QVector<Way> &ways) const
{
    KMBoneRest rest = moved.before;
    rest.head = head;
    if (isTurned(moved.place, motion, ways)) {
        const int leader = m_leaders[moved.place];
        const int image = imageOf(pointOf(moved.place, Head));
        const Quaternion shown = turnAt(image >= 0 ? image : pointOf(moved.place, Head), motion);
        const Quaternion turn =
            leader >= 0 ? reflectedTurn(ways[leader].turn) : moved.pose.conjugate() * shown * moved.pose;
        rest.rotation = (turn * rest.rotation).normalized();
        return rest;
    }
    if (moved.bone->isPoint())
        return rest;
    const Vector3 end = tailOf(moved, rest.head, motion, ways);
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
        Way &way = ways[place];
        const Moved *moved = m_movedAt[place] >= 0 ? &m_bones.at(m_movedAt[place]) : nullptr;
        const Vector3 head = moved ? headOf(*moved, motion, ways) : Vector3();
        if (moved)
            way.head = head - moved->before.head;
        way.shown = shownWay(place, way.head, ways);
        if (!moved)
            continue;
        const KMBoneRest rest = restOf(*moved, head, motion, ways);
        way.tail = tailAtRest(rest, *moved->bone) - tailAtRest(moved->before, *moved->bone);
        way.turn = rest.rotation * moved->before.rotation.conjugate();
        way.isTurned = isTurned(place, motion, ways);
        if (rest != moved->bone->rest())
            moved->bone->setRest(rest);
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

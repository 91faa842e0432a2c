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

/// It and its partner can move as images of each other.
bool isPaired(const KMBone &bone)
{
    const KMBone *partner = bone.mirrorBone();
    return partner && partner != &bone && !bone.isLocked() && !partner->isLocked();
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
    m_leaders.fill(-1, bones.size());
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
        pair(bones, grabbed, anchor, options.tolerance);
    }
    order();
    m_movedAt.fill(-1, bones.size());
    QVector<bool> isAffected(bones.size());
    for (const int place : std::as_const(m_order)) {
        // What hangs on a posed bone has to change at rest to stay where it is shown.
        for (const int before : {m_leaders[place], parentOf(place)})
            isAffected[place] |= before >= 0 && isAffected[before];
        isAffected[place] |= moves(place);
        if (bones[place]->isLocked() || !isAffected[place])
            continue;
        m_movedAt[place] = m_bones.size();
        m_bones.append({bones[place], place, bones[place]->rest(), bones[place]->solvedPose().rotation});
    }
}

/// By a stack of its own, since chains may be long.
void KMJointMove::order()
{
    enum State { Open, Begun, Done };
    QVector<State> states(m_leaders.size(), Open);
    QVector<int> stack;
    for (int i = 0; i < states.size(); ++i) {
        stack << i;
        while (!stack.isEmpty()) {
            const int place = stack.last();
            if (states[place] == Open) {
                states[place] = Begun;
                if (m_leaders[place] >= 0 && states[m_leaders[place]] == Begun)
                    m_leaders[place] = -1; // the leader hangs on it
                for (const int before : {m_leaders[place], parentOf(place)}) {
                    if (before >= 0 && states[before] == Open)
                        stack << before;
                }
                continue;
            }
            stack.removeLast();
            if (states[place] == Begun)
                m_order << place;
            states[place] = Done;
        }
    }
}

bool KMJointMove::moves(int place) const
{
    return m_points[pointOf(place, Head)].moves() || m_points[pointOf(place, Tail)].moves();
}

int KMJointMove::parentOf(int place) const
{
    const KMBone *parent = m_container->bones().at(place)->parentBone();
    return parent ? parent->boneIndex() : -1;
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

/// Of two partners one is. Those that start on the plane are told apart by their tails.
bool KMJointMove::isBehind(const KMBone &bone, float tolerance) const
{
    const KMBone &partner = *bone.mirrorBone();
    const float apart = m_plane.distance(bone.restHead()) - m_plane.distance(partner.restHead());
    if (std::abs(apart) >= tolerance)
        return apart < 0.0f;
    return m_plane.distance(bone.restTail()) < m_plane.distance(partner.restTail());
}

/// Of the ends that have partners those next to the anchor decide. No answer where none has.
std::optional<bool> KMJointMove::isLedFromBehind(const QVector<Grabbed> &ends, const Vector3 &anchor,
                                                 float tolerance) const
{
    constexpr float nowhere = std::numeric_limits<float>::max();
    float nearest[2] = {nowhere, nowhere};
    for (const Grabbed &entry : ends) {
        if (!isPaired(*entry.bone))
            continue;
        float &least = nearest[isBehind(*entry.bone, tolerance)];
        if (entry.ends & KMBone::HeadSelected)
            least = std::min(least, (entry.bone->head() - anchor).length());
        if (entry.ends & KMBone::TailSelected)
            least = std::min(least, (entry.bone->tail() - anchor).length());
    }
    if (nearest[0] == nowhere && nearest[1] == nowhere)
        return {};
    return nearest[1] < nearest[0] * (1.0f - sideShare);
}

/// One side leads: that of what was grabbed, not of what only hangs on it. The other one follows bone by bone, so that
/// each has both its ends from the same bone. What lies where is asked at rest: a pose needn't be symmetric.
void KMJointMove::pair(const QList<KMBone *> &bones, const QVector<Grabbed> &grabbed, const Vector3 &anchor,
                       float tolerance)
{
    QVector<Grabbed> moving;
    for (int i = 0; i < bones.size(); ++i) {
        Point &head = m_points[pointOf(i, Head)];
        Point &tail = m_points[pointOf(i, Tail)];
        head.isOnPlane = std::abs(m_plane.distance(bones[i]->restHead())) < tolerance;
        tail.isOnPlane = std::abs(m_plane.distance(bones[i]->restTail())) < tolerance;
        if (moves(i))
            moving.append(
                {bones[i], (head.moves() ? KMBone::HeadSelected : 0) | (tail.moves() ? KMBone::TailSelected : 0)});
    }
    std::optional<bool> isLeaderBehind = isLedFromBehind(grabbed, anchor, tolerance);
    if (!isLeaderBehind)
        isLeaderBehind = isLedFromBehind(moving, anchor, tolerance);
    for (int i = 0; i < bones.size(); ++i) {
        if (isPaired(*bones[i]) && isBehind(*bones[i], tolerance) == isLeaderBehind)
            lead(i, bones[i]->mirrorBone()->boneIndex());
    }
}

/// What moves of the follower alone, the leader has to do in its place.
void KMJointMove::lead(int leader, int follower)
{
    m_leaders[follower] = leader;
    for (const End end : {Head, Tail}) {
        Point &point = m_points[pointOf(leader, end)];
        const Point &image = m_points[pointOf(follower, end)];
        if (point.moves() || !image.moves())
            continue;
        point.isMirrored = true;
        point.isGrabbed = image.isGrabbed;
        point.carrier = image.carrier;
    }
}

void KMJointMove::place(const Motion &motion)
{
    for (Point &point : m_points) {
        point.now = point.start;
        if (!point.moves())
            continue;
        if (point.isGrabbed || motion.isRigid) {
            point.now = point.isMirrored ? m_plane.reflected(motion.map(m_plane.reflected(point.start)))
                                         : motion.map(point.start);
        } else {
            const Vector3 &joint = m_points[point.carrier].start;
            const Vector3 way = motion.map(joint) - joint;
            point.now = point.start + (point.isMirrored ? m_plane.reflectedWay(way) : way);
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
    const int leader = m_leaders[moved.place];
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
    const int leader = m_leaders[moved.place];
    if (leader >= 0)
        return moved.before.tail() + m_plane.reflectedWay(ways[leader].tail);
    const Point &start = m_points[pointOf(moved.place, Head)];
    const Vector3 shownHead = start.start + shownWay(moved.place, head - moved.before.head, ways);
    const Vector3 change = (point.now - shownHead) - (point.start - start.start);
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
    return motion.isRigid && head.moves() && tail.moves() && head.isMirrored == tail.isMirrored && !head.isOnPlane
           && !tail.isOnPlane;
}

KMBoneRest KMJointMove::restOf(const Moved &moved, const Motion &motion, const QVector<Way> &ways) const
{
    KMBoneRest rest = moved.before;
    rest.head = headOf(moved, ways);
    if (isTurned(moved.place, motion, ways)) {
        const int leader = m_leaders[moved.place];
        const bool isMirrored = m_points[pointOf(moved.place, Head)].isMirrored;
        const Quaternion shown = isMirrored ? reflectedTurn(motion.turn) : motion.turn;
        const Quaternion turn =
            leader >= 0 ? reflectedTurn(ways[leader].turn) : moved.pose.conjugate() * shown * moved.pose;
        rest.rotation = (turn * rest.rotation).normalized();
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
            way.isTurned = isTurned(place, motion, ways);
            if (rest != moved.bone->rest())
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

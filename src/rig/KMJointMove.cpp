// Which ends move, and by what.

#include "rig/KMJointMove.h"

#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"

#include <algorithm>
#include <cmath>
#include <limits>

using kvm::Vector3;

namespace {

constexpr float attachedShare = 1e-3f; // of a length: files round
constexpr float roundingShare = 1e-6f; // of a place
constexpr float sideShare = 1e-3f;     // a side that is nearer by less than that doesn't lead before the front one

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
    const auto lengthOf = [](const KMBone &bone) { return (bone.restTail() - bone.restHead()).length(); };
    const float length = std::max(lengthOf(*parent), lengthOf(child));
    const float margin = std::max(attachedShare * length, roundingShare * parent->restTail().length());
    return (child.restHead() - parent->restTail()).length() <= margin;
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
    findJoints(bones);
    grab(bones, grabbed);
    closeJoints();
    if (options.takesChildren)
        carryChildren(bones);
    if (options.mirrors) {
        KMBoneEdit::pairForEdits(container, options.tolerance);
        pair(bones, grabbed, anchor, options.tolerance);
        closeJoints(); // of leaders that move for their followers alone
        joinFollowers(bones);
        if (options.takesChildren)
            carryChildren(bones);
    }
    order();
    m_movedAt.fill(-1, bones.size());
    QVector<bool> isAffected(bones.size());
    for (const int place : std::as_const(m_order)) {
        // What hangs on a posed bone has to change at rest to stay where it is shown.
        for (const int before : placesBefore(place))
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
                for (const End end : {Head, Tail}) {
                    int &follower = m_points[pointOf(place, end)].follower;
                    const int leader = follower < 0 ? -1 : m_leaders[follower / 2];
                    if (leader < 0 || states[leader] == Begun) // likewise
                        follower = -1;
                }
                for (const int other : placesBefore(place)) {
                    if (other >= 0 && states[other] == Open)
                        stack << other;
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

/// The bones by which one goes, or -1.
std::array<int, 4> KMJointMove::placesBefore(int place) const
{
    const auto leader = [this](const Point &point) { return point.follower < 0 ? -1 : m_leaders[point.follower / 2]; };
    return {m_leaders[place], parentOf(place), leader(m_points[pointOf(place, Head)]),
            leader(m_points[pointOf(place, Tail)])};
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

/// Whether an end moves, a follower's included.
bool KMJointMove::pointMoves(int point) const
{
    const int leader = leaderOf(point);
    return m_points[leader < 0 ? point : leader].moves();
}

int KMJointMove::leaderOf(int point) const
{
    const int leader = m_leaders[point / 2];
    return leader < 0 ? -1 : pointOf(leader, End(point % 2));
}

int KMJointMove::imageOf(int point) const
{
    if (m_points[point].follower >= 0)
        return point;
    const int carrier = m_points[point].isMirrored ? -1 : m_points[point].carrier;
    return carrier >= 0 && (leaderOf(carrier) >= 0 || m_points[carrier].follower >= 0) ? carrier : -1;
}

/// Through points, whose ends are one, a joint may reach on to others. Parents stand before their children.
void KMJointMove::findJoints(const QList<KMBone *> &bones)
{
    m_joints.resize(m_points.size());
    for (int i = 0; i < bones.size(); ++i) {
        int &head = m_joints[pointOf(i, Head)];
        head = isAttached(*bones[i]) ? m_joints[pointOf(parentOf(i), Tail)] : pointOf(i, Head);
        m_joints[pointOf(i, Tail)] = bones[i]->isPoint() ? head : pointOf(i, Tail);
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

/// All ends of a joint are grabbed with one of them, or carried with a leader that is so for its follower's sake. Those
/// of followers go by their leaders.
void KMJointMove::closeJoints()
{
    QVector<int> moving(m_points.size(), -1); // an end of each joint
    for (int i = 0; i < m_points.size(); ++i) {
        int &end = moving[m_joints[i]];
        const Point &point = m_points[i];
        if (m_leaders[i / 2] < 0 && (point.isGrabbed || (point.isMirrored && end < 0)))
            end = i;
    }
    for (int i = 0; i < m_points.size(); ++i) {
        const int end = moving[m_joints[i]];
        Point &point = m_points[i];
        if (end < 0 || m_leaders[i / 2] >= 0 || (m_points[end].isGrabbed ? point.isGrabbed : point.moves()))
            continue;
        point.isGrabbed = m_points[end].isGrabbed;
        point.isMirrored = m_points[end].isMirrored;
        point.carrier = m_points[end].carrier;
    }
}

/// Followers take no part: what hangs on one goes with it.
void KMJointMove::carryChildren(const QList<KMBone *> &bones)
{
    struct Carrier
    {
        int point = -1;
        bool isMirrored = false;
    };
    QVector<Carrier> carriers(bones.size());
    const auto carrierAt = [this](int point) { return Carrier{point, m_points[point].isMirrored}; };
    for (int i = 0; i < bones.size(); ++i) {
        const int above = parentOf(i);
        const Point &head = m_points[pointOf(i, Head)];
        if (m_leaders[i] >= 0) {
            if (pointMoves(pointOf(i, Tail)))
                carriers[i].point = pointOf(i, Tail);
            continue;
        }
        if (head.isGrabbed || (head.follower >= 0 && pointMoves(head.follower)))
            carriers[i] = carrierAt(pointOf(i, Head));
        else if (above >= 0 && carriers[above].point >= 0)
            carriers[i] = carriers[above];
        else if (above >= 0 && m_points[pointOf(above, Tail)].isGrabbed)
            carriers[i] = carrierAt(pointOf(above, Tail));
        else if (isPaired(*bones[i]) && head.isMirrored) // it leads for the sake of its follower
            carriers[i] = {head.carrier, true};
        for (const End end : {Head, Tail}) {
            Point &point = m_points[pointOf(i, end)];
            if (point.isGrabbed || point.follower >= 0 || carriers[i].point < 0)
                continue;
            point.carrier = carriers[i].point;
            point.isMirrored = carriers[i].isMirrored;
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
    QVector<Grabbed> moving, all;
    for (int i = 0; i < bones.size(); ++i) {
        Point &head = m_points[pointOf(i, Head)];
        Point &tail = m_points[pointOf(i, Tail)];
        head.isOnPlane = std::abs(m_plane.distance(bones[i]->restHead())) < tolerance;
        tail.isOnPlane = std::abs(m_plane.distance(bones[i]->restTail())) < tolerance;
        all.append({bones[i], KMBone::BothSelected});
        if (moves(i))
            moving.append(
                {bones[i], (head.moves() ? KMBone::HeadSelected : 0) | (tail.moves() ? KMBone::TailSelected : 0)});
    }
    std::optional<bool> isLeaderBehind;
    for (const QVector<Grabbed> &ends : {grabbed, moving, all}) {
        if (!isLeaderBehind)
            isLeaderBehind = isLedFromBehind(ends, anchor, tolerance);
    }
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

/// What has no partner but hangs on a follower would be left behind by it.
void KMJointMove::joinFollowers(const QList<KMBone *> &bones)
{
    QVector<int> followers(m_points.size(), -1); // an end of each joint
    QVector<bool> areLed(m_points.size());       // joints with an end of a leader
    for (int i = 0; i < m_points.size(); ++i) {
        if (leaderOf(i) < 0)
            areLed[m_joints[i]] |= isPaired(*bones[i / 2]);
        else if (followers[m_joints[i]] < 0)
            followers[m_joints[i]] = i;
    }
    for (int i = 0; i < m_points.size(); ++i) {
        const int follower = followers[m_joints[i]];
        if (follower < 0 || areLed[m_joints[i]] || m_leaders[i / 2] >= 0)
            continue;
        m_points[i].follower = follower;
        m_points[i].isGrabbed = m_points[i].isMirrored = false;
        m_points[i].carrier = -1;
    }
}

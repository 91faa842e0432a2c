#pragma once

#include "math/Quaternion.h"
#include "mesh/KMSymmetryPlane.h"
#include "rig/KMRestBone.h"

#include <QPointer>
#include <QVector>

#include <array>
#include <functional>
#include <optional>

class KMBone;
class KMBoneContainer;

/// Moves heads and tails of bones from where they are shown to other places, as a drag does: the bones follow at once
/// and without the history. A tail and the heads that are attached to it are one joint and move together.
///
/// Bones are edited at rest, but seen posed: the rest that is set is the one with which the pose shows the wanted
/// place.
class KMJointMove
{
public:
    struct Grabbed
    {
        KMBone *bone;
        int ends; ///< bits of KMBone::SelectBit
    };
    struct Options
    {
        bool takesChildren = false; ///< all that hangs on a moved joint moves along, and isn't stretched
        bool mirrors = false;       ///< the partners across the plane of the rig do the same in the mirror
        float tolerance = 0.0f;     ///< world units; how far a partner may lie from the image
    };
    /// Where a point that is shown has to go.
    struct Motion
    {
        std::function<kvm::Vector3(const kvm::Vector3 &)> map;
        kvm::Quaternion turn; ///< of the map, where it is rigid
        bool isRigid = false; ///< it turns about a point
    };

    KMJointMove() = default;
    /// Locked bones stay. With mirrors one side leads, and what is grabbed on both goes by the side of the anchor.
    KMJointMove(KMBoneContainer *container, const QVector<Grabbed> &grabbed, const Options &options,
                const kvm::Vector3 &anchor);

    bool isEmpty() const { return m_bones.isEmpty(); }
    void apply(const Motion &motion); ///< from where everything was at the start
    void restore();                   ///< as at the start, bit for bit
    void pushCommands();              ///< a step for each bone that differs from its start; opens no macro

    /// A child's head is attached to the parent's tail: it lies there, and doesn't float.
    static bool isAttached(const KMBone &child);

private:
    enum End { Head, Tail };
    struct Point
    {
        kvm::Vector3 start; // as shown
        kvm::Vector3 now;
        bool isGrabbed = false;
        bool isOnPlane = false;
        bool isMirrored = false; // its image is what was grabbed: it goes by the image of the motion
        int carrier = -1;        // the end that takes it along; with isMirrored maybe the one that takes its image
        int follower = -1;       // the end of a follower in the same joint, with which it goes
        bool moves() const { return isGrabbed || carrier >= 0; } // by the motion
    };
    struct Moved
    {
        KMBone *bone;
        int place; // in the container's list
        KMBoneRest before;
        kvm::Quaternion pose; // of the world, as shown
    };
    /// What became of a bone.
    struct Way
    {
        kvm::Vector3 shown; // of the head
        kvm::Vector3 head;  // at rest, as the others
        kvm::Vector3 tail;
        kvm::Quaternion turn;
        bool isTurned = false; // as a whole
    };

    static int pointOf(int place, End end) { return 2 * place + end; }
    void findJoints(const QList<KMBone *> &bones);
    void grab(const QList<KMBone *> &bones, const QVector<Grabbed> &grabbed);
    void closeJoints();
    void carryChildren(const QList<KMBone *> &bones);
    void pair(const QList<KMBone *> &bones, const QVector<Grabbed> &grabbed, const kvm::Vector3 &anchor,
              float tolerance);
    void lead(int leader, int follower);
    void joinFollowers(const QList<KMBone *> &bones);
    bool isBehind(const KMBone &bone, float tolerance) const;
    std::optional<bool> isLedFromBehind(const QVector<Grabbed> &ends, const kvm::Vector3 &anchor,
                                        float tolerance) const;
    std::array<int, 4> placesBefore(int place) const;
    bool moves(int place) const;
    bool pointMoves(int point) const;
    int leaderOf(int point) const; // the end that its own is the image of, or -1
    int imageOf(int point) const;  // the end by which it goes with a follower, or -1
    void order();
    void place(const Motion &motion);
    int parentOf(int place) const; // -1 without
    kvm::Vector3 shownWay(int place, const kvm::Vector3 &atRest, const QVector<Way> &ways) const;
    kvm::Vector3 imageWay(int leader, const QVector<Way> &ways) const;
    kvm::Vector3 goalOf(int point, const Motion &motion, const QVector<Way> &ways) const;
    kvm::Vector3 headOf(const Moved &moved, const Motion &motion, const QVector<Way> &ways) const;
    kvm::Vector3 tailOf(const Moved &moved, const kvm::Vector3 &head, const Motion &motion,
                        const QVector<Way> &ways) const;
    kvm::Quaternion turnAt(int point, const Motion &motion) const;
    bool isTurned(int place, const Motion &motion, const QVector<Way> &ways) const;
    KMBoneRest restOf(const Moved &moved, const kvm::Vector3 &head, const Motion &motion,
                      const QVector<Way> &ways) const;
    kvm::Quaternion reflectedTurn(const kvm::Quaternion &turn) const;
    kvm::Quaternion poseOf(int place) const; // of the world, as shown

    QPointer<KMBoneContainer> m_container; // the bones go with it, as a new document has it
    KMSymmetryPlane m_plane{kvm::Vector3(), kvm::Vector3(1.0f, 0.0f, 0.0f)};
    QVector<Point> m_points; // two for each bone of the container
    QVector<int> m_joints;   // for each point the first one of its joint
    QVector<int> m_leaders;  // for each the bone whose image it is, or -1
    QVector<Moved> m_bones;  // those that can change
    QVector<int> m_movedAt;  // for each bone of the container the place among these, or -1
    QVector<int> m_order;    // all bones, parents and leaders before those that go by them
};

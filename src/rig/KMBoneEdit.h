#pragma once

#include "mesh/KMSymmetryPlane.h"
#include "rig/KMRestBone.h"

#include <QList>
#include <QString>
#include <QVector>

class KMBone;
class KMBoneContainer;
class KMMeshNode;

/// How bones are edited at rest. What answers changes leaves the bones alone; what is called push... makes steps of the
/// history and opens no macro.
namespace KMBoneEdit {

struct Change
{
    KMBone *bone;
    KMBoneRest rest;
};
using Changes = QVector<Change>;

bool areNeeded(const Changes &changes); ///< pushChanges() has something to push
/// Those that are more than rounding away from what the bones have. Locked bones stay; it says so where some do.
void pushChanges(const Changes &changes);
/// The bones that may be changed. Says so where some are locked.
QList<KMBone *> unlocked(const QList<KMBone *> &bones);

/// The joints of a chain on the line from its first head to its last tail, with the shares that the lengths have now.
/// Points are left out; empty for less than two bones, or when each isn't the parent of the next.
Changes linearized(const QList<KMBone *> &bones);

enum class Fault { None, Heads, Tails }; ///< both lie on the same side of the plane, or one on it
/// Two bones as each other's image, halfway between where they stand now. With a point only the heads.
Changes symmetrized(KMBone *first, KMBone *second, const KMSymmetryPlane &plane, Fault *fault);

Changes fittedTo(KMBone *bone, const KMBone *child);                       ///< its tail reaches the head of the child
Changes upAligned(const QList<KMBone *> &bones, const kvm::Vector3 &up);   ///< turned about their own axes
Changes turned(const QList<KMBone *> &bones, const kvm::Quaternion &turn); ///< about the origin
/// The image of a bone, with its roll: the axes are those across the plane, but for X, which turns round.
KMBoneRest reflected(KMBoneRest rest, const KMSymmetryPlane &plane);

/// As KMBoneContainer::pairMirrorBones(), but bones that start on the plane find their partners too, by their tails.
void pairForEdits(KMBoneContainer *container, float tolerance);

QList<KMBone *> selectedWithLength(const KMBoneContainer &container); ///< the selected bones that are no points

/// These and no others of the rig are selected from then on, the last one current. No step where it is so already.
void pushSelected(KMBoneContainer *rig, const QList<KMBone *> &bones);

/// The name of a bone's partner by the marks of the sides that are in use; empty for a name without one.
QString mirroredName(const QString &name);

/// A new bone as the first child of the first selected one, from whose tail it goes on, or at the top of the container.
/// It becomes the selected one.
KMBone *pushNewBone(KMBoneContainer *container);
/// One macro: a new bone in the active container, or else in the first one that isn't locked, or in a new one. Null
/// where there is no room below the selected one.
KMBone *createBone();
/// The active container, or else the one at hand, or a new one.
KMBoneContainer *containerForNew();
/// The active container, or else the first one that isn't locked; hidden ones don't count. Null without.
KMBoneContainer *containerAtHand();
KMBoneContainer *addContainer(); ///< a new one in the scene
/// Where a place that the views show lies at rest for what hangs on a bone, null for the top.
kvm::Vector3 placeAtRest(const KMBone *parent, const kvm::Vector3 &shown);
kvm::Vector3 placeAsShown(const KMBone *parent, const kvm::Vector3 &atRest); ///< the reverse
/// A new bone between two places as the views show them, under a parent, null for the top. It becomes the selected one.
KMBone *pushDrawnBone(KMBoneContainer *container, KMBone *parent, const kvm::Vector3 &head, const kvm::Vector3 &tail,
                      bool isFloating);
void pushCopies(KMBoneContainer *container); ///< of the selected bones with all below them; these become selected
void pushMirrored(KMBoneContainer *container, const QList<KMBone *> &bones); ///< a partner for each
void pushDivided(KMBone *bone); ///< into two halves; its children hang on the second
void pushLayered(KMBone *bone); ///< a point at the same place comes above it
/// So many bones may stand above one. Rows are walked by recursion in Qt: at many thousands the stack isn't enough. The
/// readers move up what lies deeper, so whoever makes or moves bones asks first; where there is no room the user is
/// told.
constexpr int MaxDepth = 4000;
bool hasRoom(const KMBone *parent, int levels);            ///< for so many bones in a row on a parent, null for the top
bool hasRoomFor(const KMBone *bone, const KMBone *parent); ///< with all below it on a parent, null for the top
bool hasRoomForDoubles(const KMBoneContainer &rig, const QList<KMBone *> &bones); ///< one more bone for each of these
int longestRun(const KMMeshNode &mesh);                                           ///< of selected edges
/// A bone on each edge of the selected runs of edges, under a parent, null for the top.
void pushFromEdges(KMBoneContainer *container, const KMMeshNode &mesh, KMBone *parent);

} // namespace KMBoneEdit

#pragma once

#include "math/Vector3.h"

#include <QList>
#include <QPointF>

#include <limits>

class KMBone;
class KMBoneContainer;
class KMCameraNode;

/// Finds the bone under the cursor. Bones lie over everything, so nothing hides them.
namespace KMBonePicker {

enum class Part { None, Head, Tail, Body };

struct Hit
{
    KMBone *bone = nullptr;
    Part part = Part::None;
    kvm::Vector3 point; ///< the head, the tail, or the place of the axis that lies under the cursor
    float distance = std::numeric_limits<float>::max(); ///< of the point from the cursor, pixels

    bool isHit() const { return bone; }
};
bool operator==(const Hit &a, const Hit &b); ///< the same part of the same bone

/// The rigs whose bones are shown, in the order of the tree.
QList<KMBoneContainer *> shownContainers();
bool isShown(const KMBone &bone);    ///< it is live, and neither it nor its rig is hidden
bool isPickable(const KMBone &bone); ///< shown, and neither it nor its rig is locked

/// The nearest one within its pick radius; heads go before tails, and both before what lies between. On a bone that
/// is short on the screen the ends reach less far, so that its middle can be hit too. With a rig given only its bones.
Hit pickBone(const KMCameraNode &camera, const QPointF &position, const KMBoneContainer *only = nullptr);

/// Where the cursor is: the views show it. One cursor, so one for the whole program.
Hit hot();
bool setHot(const Hit &hit); ///< whether another part lights up than before
void clearHot();

} // namespace KMBonePicker

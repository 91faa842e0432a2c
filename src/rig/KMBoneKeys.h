#pragma once

#include "rig/KMBoneKey.h"

#include <QString>

class KMBone;

/// How keys are made of what a bone shows.
namespace KMBoneKeys {

/// Why keys of a bone can't be edited: it is locked, or another bone is the one that its name finds. Empty when they
/// can.
QString fault(const KMBone &bone);

/// A key that keeps the pose of a bone at a frame, with neutral curves. A place that the bone doesn't follow, since it
/// isn't movable, stays as its keys have it.
KMBoneKey ofPose(const KMBone &bone, quint32 frame);

} // namespace KMBoneKeys

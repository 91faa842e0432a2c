#pragma once

#include "math/Quaternion.h"
#include "math/Vector3.h"

/// How the rings of a tube stand.
namespace KMPipeFrame {

/// The turn that takes -z to the direction, and x at right angles to the direction and `up`. The identity for a
/// direction of no length.
kvm::Quaternion along(const kvm::Vector3 &direction, const kvm::Vector3 &up);

/// The point midway between the closest points of two lines, which have directions of unit length. False when the
/// lines are parallel.
bool meetingPoint(const kvm::Vector3 &a, const kvm::Vector3 &directionA, const kvm::Vector3 &b,
                  const kvm::Vector3 &directionB, kvm::Vector3 *point);

} // namespace KMPipeFrame

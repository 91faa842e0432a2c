#pragma once

#include "math/Quaternion.h"

namespace kvm {

/// The angles that Quaternion::fromEuler() takes, reckoned in double precision and exact at the poles too: there Y
/// stands at a quarter turn and the others turn about one axis, which X gets.
Vector3 eulerAngles(const Quaternion &rotation);

} // namespace kvm

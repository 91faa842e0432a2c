#pragma once

#include "math/Vector3.h"

#include <cmath>

namespace kvm {

/// Whether all three are numbers that arithmetic can go on with: neither infinite nor none at all.
inline bool isFinite(const Vector3 &v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

} // namespace kvm

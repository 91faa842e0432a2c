#pragma once

#include "math/Quaternion.h"

#include <cmath>

/// A rotation as poses need it, of length 1; damaged keys hold others. No rotation where the length isn't above 0.
inline kvm::Quaternion unitRotation(const kvm::Quaternion &rotation)
{
    const float length = rotation.length();
    return length > 0.0f && std::isfinite(length) ? rotation.normalized() : kvm::Quaternion();
}

#pragma once

#include "math/Quaternion.h"

#include <cmath>

/// A rotation as poses need it, of length 1; damaged keys hold others. One that has it but for rounding stays bit for
/// bit. No rotation where the length isn't above 0.
inline kvm::Quaternion unitRotation(const kvm::Quaternion &rotation)
{
    constexpr float rounding = 1e-6f;
    const float length = rotation.length();
    if (std::abs(length - 1.0f) <= rounding)
        return rotation;
    return length > 0.0f && std::isfinite(length) ? rotation.normalized() : kvm::Quaternion();
}

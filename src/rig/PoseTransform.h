#pragma once

#include "math/Quaternion.h"
#include "math/Vector3.h"

/// How a bone stands against its rest pose: a scale, a rotation, and an offset of its head. A new one is the rest pose.
struct PoseTransform
{
    kvm::Vector3 scale{1.0f, 1.0f, 1.0f};
    kvm::Quaternion rotation;
    kvm::Vector3 offset;
};

/// Exact: no tolerance.
constexpr bool operator==(const PoseTransform &a, const PoseTransform &b)
{
    return a.scale == b.scale && a.rotation == b.rotation && a.offset == b.offset;
}

constexpr bool operator!=(const PoseTransform &a, const PoseTransform &b)
{
    return !(a == b);
}

#pragma once

#include "math/Quaternion.h"
#include "math/Vector3.h"

/// Where a bone stands at rest and how long it is. It points along the negative Z axis of its rotation.
struct KMBoneRest
{
    static constexpr float UnitLength = 100.0f; ///< of a bone with the length scale 1

    kvm::Vector3 head;
    kvm::Quaternion rotation;
    kvm::Vector3 scale{1.0f, 1.0f, 1.0f};
    float lengthScale = 1.0f; ///< the length in UnitLength

    kvm::Vector3 tail() const; ///< of a bone that has a length: points have theirs at the head
};

bool operator==(const KMBoneRest &a, const KMBoneRest &b); ///< exact
bool operator!=(const KMBoneRest &a, const KMBoneRest &b);

/// The rotation that turns the positive Z axis into a direction, with the Y axis as close to `up` as it can be.
/// Components smaller than the step of a float at 1 count as zero on the way and in the result. A direction of no
/// length gives what `up` alone asks for.
kvm::Quaternion directionToQuaternion(const kvm::Vector3 &direction, const kvm::Vector3 &up);

/// A bone between two points, by the one rule for all bones that are made from points. The rest it had gives the
/// scale, and the rotation when both points are the same: its length is then 0.
KMBoneRest restBone(const kvm::Vector3 &head, const kvm::Vector3 &tail, const KMBoneRest &before = {});

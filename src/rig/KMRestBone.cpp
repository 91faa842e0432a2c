#include "rig/KMRestBone.h"

#include <cmath>

namespace {

constexpr float epsilon = 1.1920929e-7f; // the step of a float at 1
constexpr float halfPi = 1.5707964f;

float snapped(float value)
{
    return value > -epsilon && value < epsilon ? 0.0f : value;
}

} // namespace

kvm::Vector3 KMBoneRest::tail() const
{
    return head + rotation.rotate({0.0f, 0.0f, -UnitLength}) * lengthScale;
}

bool operator==(const KMBoneRest &a, const KMBoneRest &b)
{
    return a.head == b.head && a.rotation == b.rotation && a.scale == b.scale && a.lengthScale == b.lengthScale;
}

bool operator!=(const KMBoneRest &a, const KMBoneRest &b)
{
    return !(a == b);
}

kvm::Quaternion directionToQuaternion(const kvm::Vector3 &direction, const kvm::Vector3 &up)
{
    // Both are turned about X until the direction lies in the XZ plane, about Y until it lies on Z; what is left of
    // `up` then says the turn about Z.
    kvm::Vector3 u = up;
    float z = direction.z;
    float aboutX = 0.0f;
    if (direction.y != 0.0f || direction.z != 0.0f) {
        aboutX = std::atan2(direction.y, direction.z);
        const float sine = std::sin(aboutX), cosine = std::cos(aboutX);
        z = snapped(sine * direction.y + cosine * direction.z);
        u = {up.x, snapped(cosine * up.y - sine * up.z), snapped(sine * up.y + cosine * up.z)};
    }
    float aboutY = 0.0f;
    if (direction.x != 0.0f || z != 0.0f) {
        aboutY = std::atan2(z, direction.x) - halfPi;
        u.x = snapped(std::cos(aboutY) * u.x + std::sin(aboutY) * u.z);
    }
    const float aboutZ = u.x != 0.0f || u.y != 0.0f ? std::atan2(u.y, u.x) - halfPi : 0.0f;

    kvm::Quaternion q = kvm::Quaternion::fromAxisAngle({1.0f, 0.0f, 0.0f}, -aboutX);
    q *= kvm::Quaternion::fromAxisAngle({0.0f, 1.0f, 0.0f}, -aboutY);
    q *= kvm::Quaternion::fromAxisAngle({0.0f, 0.0f, 1.0f}, aboutZ);
    return {snapped(q.w), snapped(q.x), snapped(q.y), snapped(q.z)};
}

KMBoneRest restBone(const kvm::Vector3 &head, const kvm::Vector3 &tail, const KMBoneRest &before)
{
    KMBoneRest rest = before;
    rest.head = head;
    rest.lengthScale = (tail - head).length() / KMBoneRest::UnitLength;
    if (rest.lengthScale > 0.0f)
        rest.rotation = directionToQuaternion(head - tail, {0.0f, 0.0f, -1.0f});
    return rest;
}

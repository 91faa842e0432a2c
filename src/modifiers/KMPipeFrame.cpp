#include "modifiers/KMPipeFrame.h"

#include "math/Matrix4.h"

#include <cmath>

using kvm::Vector3;

namespace {

/// The axis that is farthest from the direction.
Vector3 axisAcross(const Vector3 &direction)
{
    const float x = std::abs(direction.x);
    const float y = std::abs(direction.y);
    const float z = std::abs(direction.z);
    if (x <= y && x <= z)
        return {1.0f, 0.0f, 0.0f};
    return y <= z ? Vector3(0.0f, 1.0f, 0.0f) : Vector3(0.0f, 0.0f, 1.0f);
}

double exactDot(const Vector3 &a, const Vector3 &b)
{
    return double(a.x) * double(b.x) + double(a.y) * double(b.y) + double(a.z) * double(b.z);
}

} // namespace

kvm::Quaternion KMPipeFrame::along(const Vector3 &direction, const Vector3 &up)
{
    constexpr float shortest = 1.1920929e-7f;
    constexpr float narrowest = 1e-4f; // of the angle to `up`: below, rounding decides where x points
    const float length = direction.length();
    if (!(length >= shortest) || !std::isfinite(length))
        return {};
    const Vector3 d = direction / length;
    Vector3 side = cross(d, up);
    if (!(side.length() > narrowest))
        side = cross(d, axisAcross(d));
    // Its length is the sine of the angle to `up`. A quaternion made from it as it is would roll the ring, each by
    // another angle, and make it smaller.
    side.normalize();
    const Vector3 top = cross(side, d);
    return kvm::Quaternion::fromMatrix(
               {{side.x, side.y, side.z, 0, top.x, top.y, top.z, 0, -d.x, -d.y, -d.z, 0, 0, 0, 0, 1}})
        .normalized();
}

bool KMPipeFrame::meetingPoint(const Vector3 &a, const Vector3 &directionA, const Vector3 &b, const Vector3 &directionB,
                               Vector3 *point)
{
    constexpr double parallel = 1e-6; // of the squared sine: nearer to it rounding would throw the point far away
    const double cosine = exactDot(directionA, directionB);
    const double sine2 = exactDot(directionA, directionA) * exactDot(directionB, directionB) - cosine * cosine;
    if (!(sine2 > parallel))
        return false;
    const Vector3 between = a - b;
    const double alongA = exactDot(directionA, between);
    const double alongB = exactDot(directionB, between);
    const float stepA = float((cosine * alongB - alongA) / sine2);
    const float stepB = float((alongB - cosine * alongA) / sine2);
    *point = (a + directionA * stepA + b + directionB * stepB) * 0.5f;
    return true;
}

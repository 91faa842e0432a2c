#include "math/Quaternion.h"

#include "math/Matrix4.h"

#include <algorithm>

namespace kvm {

namespace {

constexpr float epsilon = 1.1920929e-7f; // the step of a float at 1
constexpr float pi = 3.1415927f;
constexpr float halfPi = 1.5707964f;

float clampedAcos(float cosine)
{
    return std::acos(std::clamp(cosine, -1.0f, 1.0f));
}

float clampedAsin(float sine)
{
    return std::asin(std::clamp(sine, -1.0f, 1.0f));
}

} // namespace

Quaternion Quaternion::fromAxisAngle(const Vector3 &axis, float angle)
{
    const Vector3 v = axis.normalized() * std::sin(angle * 0.5f);
    return {std::cos(angle * 0.5f), v.x, v.y, v.z};
}

Quaternion Quaternion::fromEuler(float x, float y, float z)
{
    const float c1 = std::cos(x * 0.5f), s1 = std::sin(x * 0.5f);
    const float c2 = std::cos(y * 0.5f), s2 = std::sin(y * 0.5f);
    const float c3 = std::cos(z * 0.5f), s3 = std::sin(z * 0.5f);
    return {c1 * c2 * c3 + s1 * s2 * s3, s1 * c2 * c3 - c1 * s2 * s3, c1 * s2 * c3 + s1 * c2 * s3,
            c1 * c2 * s3 - s1 * s2 * c3};
}

Quaternion Quaternion::fromMatrix(const Matrix4 &m)
{
    // Solving for the part with the greatest magnitude keeps s at 1 or above, so that nothing cancels in the root.
    const float trace = m[0] + m[5] + m[10];
    Quaternion q;
    float s = 0.0f;
    if (trace > 0.0f) {
        s = trace + 1.0f;
        q = {s, m[6] - m[9], m[8] - m[2], m[1] - m[4]};
    } else if (m[0] > m[5] && m[0] > m[10]) {
        s = 1.0f + m[0] - m[5] - m[10];
        q = {m[6] - m[9], s, m[1] + m[4], m[8] + m[2]};
    } else if (m[5] > m[10]) {
        s = 1.0f + m[5] - m[0] - m[10];
        q = {m[8] - m[2], m[1] + m[4], s, m[6] + m[9]};
    } else {
        s = 1.0f + m[10] - m[0] - m[5];
        q = {m[1] - m[4], m[8] + m[2], m[6] + m[9], s};
    }

    const double root = std::sqrt(double(s));
    if (root == 0.0)
        return q;
    const double factor = 0.5 / root;
    return {float(q.w * factor), float(q.x * factor), float(q.y * factor), float(q.z * factor)};
}

Quaternion Quaternion::rotationTo(const Vector3 &from, const Vector3 &to)
{
    Vector3 axis = cross(from, to);
    if (axis.length() < epsilon)
        axis = {};

    const float divisor = std::sqrt(from.lengthSquared() * to.lengthSquared());
    if (divisor == 0.0f)
        return {};
    const float cosine = dot(from, to) / divisor;
    if (cosine >= 1.0f)
        return {};
    const float angle = cosine <= -1.0f ? pi : std::acos(cosine);
    if (std::abs(angle) < epsilon)
        return {};
    return fromAxisAngle(axis, angle);
}

Vector3 Quaternion::toEuler() const
{
    const float xx = x * x, yy = y * y, zz = z * z, ww = w * w;
    return {std::atan2(2 * w * x + 2 * y * z, zz - (yy + xx) + ww), clampedAsin(-2 * (z * x - y * w)),
            std::atan2(2 * w * z + 2 * x * y, xx - yy - zz + ww)};
}

Vector3 Quaternion::toHeadingAttitudeBank() const
{
    const float xx = x * x, yy = y * y, zz = z * z, ww = w * w;
    const float n = ww + xx + yy + zz;
    const float u = x * y + z * w;
    if (n == 0.0f)
        return {};
    if (u > 0.499f * n)
        return {0.0f, 2 * std::atan2(x, w), halfPi};
    if (u < -0.499f * n)
        return {0.0f, -2 * std::atan2(x, w), -halfPi};
    return {std::atan2(2 * x * w - 2 * y * z, yy - xx - zz + ww), std::atan2(2 * y * w - 2 * x * z, xx - yy - zz + ww),
            std::asin(2 * u / n)};
}

AxisAngle Quaternion::toAxisAngle() const
{
    AxisAngle result;
    const float length = vector().length();
    if (length > epsilon)
        result.axis = (vector() / length).normalized(); // a second pass takes off what rounding left in the first
    else
        result.axis = {0.0f, 1.0f, 0.0f};
    result.angle = w > epsilon ? 2 * clampedAcos(w) : 0.0f;
    return result;
}

Matrix4 Quaternion::toMatrix() const
{
    Matrix4 m;
    m.setRotation(*this);
    return m;
}

Quaternion &Quaternion::slerp(const Quaternion &q, float t)
{
    const float angle = clampedAcos(dot(*this, q));
    if (std::abs(angle) < 0.01f)
        return *this;

    const float sine = std::sin(angle);
    if (sine < 0.01f)
        return *this = (*this + q) * 0.5f;
    return *this = *this * (std::sin((1 - t) * angle) / sine) + q * (std::sin(t * angle) / sine);
}

Quaternion operator*(const Quaternion &q, const Matrix4 &rotation)
{
    return q * Quaternion::fromMatrix(rotation);
}

Quaternion &Quaternion::operator*=(const Matrix4 &rotation)
{
    return *this *= fromMatrix(rotation);
}

} // namespace kvm

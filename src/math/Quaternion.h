#pragma once

#include "math/Vector3.h"

namespace kvm {

struct Matrix4;

/// An axis and the angle about it in radians, counter-clockwise when the axis points at the viewer.
struct AxisAngle
{
    Vector3 axis;
    float angle = 0.0f;
};

/// A rotation as a unit quaternion, the scalar w stored first. A new one is the identity.
/// Angles are radians, the system is right-handed: a positive turn about Z takes X to Y.
///
/// In a product the RIGHT operand turns first: (a * b).rotate(v) equals a.rotate(b.rotate(v)).
/// That is the order of the Hamilton product, and the reverse of Matrix4.
/// Nothing here normalises on its own, except where it says so.
struct Quaternion
{
    float w = 1.0f;
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;

    constexpr Quaternion() = default;
    constexpr Quaternion(float pw, float px, float py, float pz)
        : w(pw)
        , x(px)
        , y(py)
        , z(pz)
    {
    }
    /// The pure quaternion of a vector: w is 0.
    constexpr explicit Quaternion(const Vector3 &v)
        : w(0.0f)
        , x(v.x)
        , y(v.y)
        , z(v.z)
    {
    }

    /// Turns by `angle` about `axis`, which is normalised here. A zero axis stays zero: (cos(angle / 2), 0, 0, 0).
    static Quaternion fromAxisAngle(const Vector3 &axis, float angle);
    /// Turns about the fixed axes X first, then Y, then Z.
    static Quaternion fromEuler(float x, float y, float z);
    static Quaternion fromEuler(const Vector3 &angles) { return fromEuler(angles.x, angles.y, angles.z); }
    /// The rotation of a matrix without scale; its translation plays no part.
    static Quaternion fromMatrix(const Matrix4 &m);
    /// The shortest turn that takes the direction `from` to the direction `to`; the identity when one of them is zero.
    /// Opposite directions have no axis of their own, and none is invented: the vector part is then zero and w next to
    /// zero, of no use as a rotation. The directions should be of about unit length, since the axis of short ones falls
    /// under the threshold at which it counts as none.
    static Quaternion rotationTo(const Vector3 &from, const Vector3 &to);

    const float *data() const { return &w; } ///< w, x, y, z in a row
    float *data() { return &w; }

    constexpr Vector3 vector() const { return {x, y, z}; }
    constexpr bool isIdentity() const; ///< exact; w may be 1 or -1
    constexpr float lengthSquared() const { return w * w + x * x + y * y + z * z; }
    float length() const { return std::sqrt(lengthSquared()); }
    Quaternion normalized() const;                                     ///< unit length; a zero quaternion stays zero
    void normalize() { *this = normalized(); }                         ///< as normalized(), in place
    constexpr Quaternion conjugate() const { return {w, -x, -y, -z}; } ///< the inverse, for unit length

    constexpr Vector3 rotate(const Vector3 &v) const; ///< q v conj(q)

    /// The angles that fromEuler() takes. At the poles (y at a quarter turn) x and z share one freedom; what comes out
    /// is never NaN for a unit quaternion.
    Vector3 toEuler() const;
    /// Angles of the turn about X first (bank), then Z (attitude), then Y (heading), stored under their axes as
    /// (bank, heading, attitude). Close to the poles of the attitude the bank is 0.
    Vector3 toHeadingAttitudeBank() const;
    /// The axis is of unit length, (0, 1, 0) when there is none to tell. The angle is 0 to pi. A scalar part of zero or
    /// below yields the angle 0: negate such a quaternion first, which is the same rotation, to learn its angle.
    AxisAngle toAxisAngle() const;
    Matrix4 toMatrix() const;

    /// (1 - t) of this and t of q, not normalised.
    constexpr Quaternion &lerp(const Quaternion &q, float t);
    /// Moves this along the arc to q, t from 0 to 1. Both being closer than 0.01 radians on the sphere of quaternions
    /// (half the angle of the turn) leaves this as it is, and opposite ones give their mean. It never chooses the
    /// shorter arc: negate one of them for that.
    Quaternion &slerp(const Quaternion &q, float t);
    /// The same two for a copy.
    constexpr Quaternion lerped(const Quaternion &q, float t) const;
    Quaternion slerped(const Quaternion &q, float t) const { return Quaternion(*this).slerp(q, t); }

    constexpr Quaternion &operator+=(const Quaternion &q);
    constexpr Quaternion &operator*=(const Quaternion &q);
    Quaternion &operator*=(const Matrix4 &rotation);
    constexpr Quaternion &operator*=(float s);
    constexpr Quaternion &operator/=(float s);
};

constexpr Quaternion operator+(const Quaternion &a, const Quaternion &b)
{
    return {a.w + b.w, a.x + b.x, a.y + b.y, a.z + b.z};
}

/// The same rotation from the other side of the sphere; chooses the arc that slerp() takes.
constexpr Quaternion operator-(const Quaternion &q)
{
    return {-q.w, -q.x, -q.y, -q.z};
}

constexpr Quaternion operator*(const Quaternion &q, float s)
{
    return {q.w * s, q.x * s, q.y * s, q.z * s};
}

constexpr Quaternion operator*(float s, const Quaternion &q)
{
    return q * s;
}

constexpr Quaternion operator/(const Quaternion &q, float s)
{
    return q * (1.0f / s);
}

/// Hamilton product: b turns first, then a.
constexpr Quaternion operator*(const Quaternion &a, const Quaternion &b)
{
    return {a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z, a.x * b.w + a.w * b.x + a.y * b.z - a.z * b.y,
            a.y * b.w + a.w * b.y + a.z * b.x - a.x * b.z, a.z * b.w + a.w * b.z + a.x * b.y - a.y * b.x};
}

/// The rotation of the matrix turns first, then q.
Quaternion operator*(const Quaternion &q, const Matrix4 &rotation);

/// Exact: no tolerance, and q differs from -q.
constexpr bool operator==(const Quaternion &a, const Quaternion &b)
{
    return a.w == b.w && a.x == b.x && a.y == b.y && a.z == b.z;
}

constexpr bool operator!=(const Quaternion &a, const Quaternion &b)
{
    return !(a == b);
}

constexpr float dot(const Quaternion &a, const Quaternion &b)
{
    return a.w * b.w + a.x * b.x + a.y * b.y + a.z * b.z;
}

constexpr bool Quaternion::isIdentity() const
{
    return (w == 1.0f || w == -1.0f) && x == 0.0f && y == 0.0f && z == 0.0f;
}

inline Quaternion Quaternion::normalized() const
{
    const float l = length();
    return l > 0.0f ? *this / l : *this;
}

constexpr Vector3 Quaternion::rotate(const Vector3 &v) const
{
    // The four parts of q v, then the vector part of their product with the conjugate.
    const float pw = -x * v.x - y * v.y - z * v.z;
    const float px = w * v.x + y * v.z - z * v.y;
    const float py = w * v.y + z * v.x - x * v.z;
    const float pz = w * v.z + x * v.y - y * v.x;
    return {px * w - pw * x - py * z + pz * y, py * w - pw * y - pz * x + px * z, pz * w - pw * z - px * y + py * x};
}

constexpr Quaternion &Quaternion::lerp(const Quaternion &q, float t)
{
    return *this = *this * (1.0f - t) + q * t;
}

constexpr Quaternion Quaternion::lerped(const Quaternion &q, float t) const
{
    return *this * (1.0f - t) + q * t;
}

constexpr Quaternion &Quaternion::operator+=(const Quaternion &q)
{
    return *this = *this + q;
}

constexpr Quaternion &Quaternion::operator*=(const Quaternion &q)
{
    return *this = *this * q;
}

constexpr Quaternion &Quaternion::operator*=(float s)
{
    return *this = *this * s;
}

constexpr Quaternion &Quaternion::operator/=(float s)
{
    return *this = *this / s;
}

QDebug operator<<(QDebug debug, const Quaternion &q); ///< "Quaternion(w, x, y, z)"

static_assert(std::is_trivially_copyable<Quaternion>::value && std::is_standard_layout<Quaternion>::value,
              "plain floats");
static_assert(sizeof(Quaternion) == 4 * sizeof(float), "no padding");

} // namespace kvm

// Not Q_PRIMITIVE_TYPE: a container would then fill new places with zeros, and a new quaternion is the identity.
Q_DECLARE_TYPEINFO(kvm::Quaternion, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(kvm::Quaternion)

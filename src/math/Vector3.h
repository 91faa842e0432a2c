#pragma once

#include "math/Vector2.h"

namespace kvm {

/// Three floats: a point, a direction or a normal of model space.
struct Vector3
{
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;

    constexpr Vector3() = default;
    constexpr Vector3(float px, float py, float pz)
        : x(px)
        , y(py)
        , z(pz)
    {
    }
    constexpr explicit Vector3(const Vector2 &v, float pz = 0.0f)
        : x(v.x)
        , y(v.y)
        , z(pz)
    {
    }

    const float *data() const { return &x; } ///< x, y, z in a row, as an upload wants them
    float *data() { return &x; }
    constexpr float operator[](int i) const { return i == 0 ? x : i == 1 ? y : z; }
    constexpr float &operator[](int i) { return i == 0 ? x : i == 1 ? y : z; }

    constexpr float lengthSquared() const { return x * x + y * y + z * z; }
    float length() const { return std::sqrt(lengthSquared()); }
    Vector3 normalized() const;                ///< unit length; a zero vector stays zero
    void normalize() { *this = normalized(); } ///< as normalized(), in place

    constexpr Vector3 &operator+=(const Vector3 &v);
    constexpr Vector3 &operator-=(const Vector3 &v);
    constexpr Vector3 &operator*=(float s);
    constexpr Vector3 &operator/=(float s);
};

constexpr Vector3 operator+(const Vector3 &a, const Vector3 &b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

constexpr Vector3 operator-(const Vector3 &a, const Vector3 &b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

constexpr Vector3 operator-(const Vector3 &v)
{
    return {-v.x, -v.y, -v.z};
}

constexpr Vector3 operator*(const Vector3 &v, float s)
{
    return {v.x * s, v.y * s, v.z * s};
}

constexpr Vector3 operator*(float s, const Vector3 &v)
{
    return v * s;
}

constexpr Vector3 operator/(const Vector3 &v, float s)
{
    return {v.x / s, v.y / s, v.z / s};
}

/// Exact: no tolerance.
constexpr bool operator==(const Vector3 &a, const Vector3 &b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

constexpr bool operator!=(const Vector3 &a, const Vector3 &b)
{
    return !(a == b);
}

constexpr float dot(const Vector3 &a, const Vector3 &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// Right-handed: cross(X, Y) is Z.
constexpr Vector3 cross(const Vector3 &a, const Vector3 &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

constexpr Vector3 &Vector3::operator+=(const Vector3 &v)
{
    return *this = *this + v;
}

constexpr Vector3 &Vector3::operator-=(const Vector3 &v)
{
    return *this = *this - v;
}

constexpr Vector3 &Vector3::operator*=(float s)
{
    return *this = *this * s;
}

constexpr Vector3 &Vector3::operator/=(float s)
{
    return *this = *this / s;
}

inline Vector3 Vector3::normalized() const
{
    const float l = length();
    return l > 0.0f ? *this / l : *this;
}

QDebug operator<<(QDebug debug, const Vector3 &v); ///< "Vector3(x, y, z)"

static_assert(std::is_trivially_copyable<Vector3>::value && std::is_standard_layout<Vector3>::value, "plain floats");
static_assert(sizeof(Vector3) == 3 * sizeof(float), "no padding");

} // namespace kvm

Q_DECLARE_TYPEINFO(kvm::Vector3, Q_PRIMITIVE_TYPE);
Q_DECLARE_METATYPE(kvm::Vector3)

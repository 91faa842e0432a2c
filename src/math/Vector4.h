#pragma once

#include "math/Vector3.h"

namespace kvm {

/// Four floats: a colour, or a homogeneous point with w last.
struct Vector4
{
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
    float w = 0.0f;

    constexpr Vector4() = default;
    constexpr Vector4(float px, float py, float pz, float pw)
        : x(px)
        , y(py)
        , z(pz)
        , w(pw)
    {
    }
    constexpr explicit Vector4(const Vector2 &v)
        : x(v.x)
        , y(v.y)
    {
    }
    constexpr explicit Vector4(const Vector3 &v, float pw = 0.0f)
        : x(v.x)
        , y(v.y)
        , z(v.z)
        , w(pw)
    {
    }

    const float *data() const { return &x; } ///< x, y, z, w in a row, as an upload wants them
    float *data() { return &x; }
    constexpr float operator[](int i) const { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }
    constexpr float &operator[](int i) { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }

    constexpr float lengthSquared() const { return x * x + y * y + z * z + w * w; }
    float length() const { return std::sqrt(lengthSquared()); }
    Vector4 normalized() const;                ///< unit length; a zero vector stays zero
    void normalize() { *this = normalized(); } ///< as normalized(), in place

    constexpr Vector4 &operator+=(const Vector4 &v);
    constexpr Vector4 &operator-=(const Vector4 &v);
    constexpr Vector4 &operator*=(float s);
    constexpr Vector4 &operator/=(float s);
};

constexpr Vector4 operator+(const Vector4 &a, const Vector4 &b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z, a.w + b.w};
}

constexpr Vector4 operator-(const Vector4 &a, const Vector4 &b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z, a.w - b.w};
}

constexpr Vector4 operator-(const Vector4 &v)
{
    return {-v.x, -v.y, -v.z, -v.w};
}

constexpr Vector4 operator*(const Vector4 &v, float s)
{
    return {v.x * s, v.y * s, v.z * s, v.w * s};
}

constexpr Vector4 operator*(float s, const Vector4 &v)
{
    return v * s;
}

constexpr Vector4 operator/(const Vector4 &v, float s)
{
    return {v.x / s, v.y / s, v.z / s, v.w / s};
}

/// Exact: no tolerance.
constexpr bool operator==(const Vector4 &a, const Vector4 &b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z && a.w == b.w;
}

constexpr bool operator!=(const Vector4 &a, const Vector4 &b)
{
    return !(a == b);
}

constexpr float dot(const Vector4 &a, const Vector4 &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w;
}

constexpr Vector4 &Vector4::operator+=(const Vector4 &v)
{
    return *this = *this + v;
}

constexpr Vector4 &Vector4::operator-=(const Vector4 &v)
{
    return *this = *this - v;
}

constexpr Vector4 &Vector4::operator*=(float s)
{
    return *this = *this * s;
}

constexpr Vector4 &Vector4::operator/=(float s)
{
    return *this = *this / s;
}

inline Vector4 Vector4::normalized() const
{
    const float l = length();
    return l > 0.0f ? *this / l : *this;
}

QDebug operator<<(QDebug debug, const Vector4 &v); ///< "Vector4(x, y, z, w)"

static_assert(std::is_trivially_copyable<Vector4>::value && std::is_standard_layout<Vector4>::value, "plain floats");
static_assert(sizeof(Vector4) == 4 * sizeof(float), "no padding");

} // namespace kvm

Q_DECLARE_TYPEINFO(kvm::Vector4, Q_PRIMITIVE_TYPE);
Q_DECLARE_METATYPE(kvm::Vector4)

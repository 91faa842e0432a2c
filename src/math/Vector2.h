#pragma once

#include <QMetaType>

#include <cmath>
#include <type_traits>

class QDebug;

namespace kvm {

/// Two floats: a UV coordinate, a point or a direction in a plane.
struct Vector2
{
    float x = 0.0f;
    float y = 0.0f;

    constexpr Vector2() = default;
    constexpr Vector2(float px, float py)
        : x(px)
        , y(py)
    {
    }

    const float *data() const { return &x; } ///< x, y in a row, as an upload wants them
    float *data() { return &x; }
    constexpr float operator[](int i) const { return i == 0 ? x : y; }
    constexpr float &operator[](int i) { return i == 0 ? x : y; }

    constexpr float lengthSquared() const { return x * x + y * y; }
    float length() const { return std::sqrt(lengthSquared()); }
    Vector2 normalized() const;                ///< unit length; a zero vector stays zero
    void normalize() { *this = normalized(); } ///< as normalized(), in place

    constexpr Vector2 &operator+=(const Vector2 &v);
    constexpr Vector2 &operator-=(const Vector2 &v);
    constexpr Vector2 &operator*=(float s);
    constexpr Vector2 &operator/=(float s);
};

constexpr Vector2 operator+(const Vector2 &a, const Vector2 &b)
{
    return {a.x + b.x, a.y + b.y};
}

constexpr Vector2 operator-(const Vector2 &a, const Vector2 &b)
{
    return {a.x - b.x, a.y - b.y};
}

constexpr Vector2 operator-(const Vector2 &v)
{
    return {-v.x, -v.y};
}

constexpr Vector2 operator*(const Vector2 &v, float s)
{
    return {v.x * s, v.y * s};
}

constexpr Vector2 operator*(float s, const Vector2 &v)
{
    return v * s;
}

constexpr Vector2 operator/(const Vector2 &v, float s)
{
    return {v.x / s, v.y / s};
}

/// Exact: no tolerance.
constexpr bool operator==(const Vector2 &a, const Vector2 &b)
{
    return a.x == b.x && a.y == b.y;
}

constexpr bool operator!=(const Vector2 &a, const Vector2 &b)
{
    return !(a == b);
}

constexpr float dot(const Vector2 &a, const Vector2 &b)
{
    return a.x * b.x + a.y * b.y;
}

constexpr Vector2 &Vector2::operator+=(const Vector2 &v)
{
    return *this = *this + v;
}

constexpr Vector2 &Vector2::operator-=(const Vector2 &v)
{
    return *this = *this - v;
}

constexpr Vector2 &Vector2::operator*=(float s)
{
    return *this = *this * s;
}

constexpr Vector2 &Vector2::operator/=(float s)
{
    return *this = *this / s;
}

inline Vector2 Vector2::normalized() const
{
    const float l = length();
    return l > 0.0f ? *this / l : *this;
}

QDebug operator<<(QDebug debug, const Vector2 &v); ///< "Vector2(x, y)"

static_assert(std::is_trivially_copyable<Vector2>::value && std::is_standard_layout<Vector2>::value, "plain floats");
static_assert(sizeof(Vector2) == 2 * sizeof(float), "no padding");

} // namespace kvm

Q_DECLARE_TYPEINFO(kvm::Vector2, Q_PRIMITIVE_TYPE);
Q_DECLARE_METATYPE(kvm::Vector2)

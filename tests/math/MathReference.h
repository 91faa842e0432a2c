#pragma once

#include "math/Matrix4.h"
#include "math/Quaternion.h"

#include <QDebug>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

/// The same mathematics in double precision, written from the textbook rather than from our formulas:
/// rotations are 3x3 matrices with rows and columns, and vectors are turned by Rodrigues' formula.
namespace reference {

using Vec = std::array<double, 3>;
using Mat = std::array<Vec, 3>; // rows

inline Vec vec(const kvm::Vector3 &v)
{
    return {double(v.x), double(v.y), double(v.z)};
}

inline double dot(const Vec &a, const Vec &b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline Vec plus(const Vec &a, const Vec &b, double factor = 1.0)
{
    return {a[0] + factor * b[0], a[1] + factor * b[1], a[2] + factor * b[2]};
}

inline Vec minus(const Vec &a, const Vec &b)
{
    return plus(a, b, -1.0);
}

inline Vec scaled(const Vec &a, double factor)
{
    return {a[0] * factor, a[1] * factor, a[2] * factor};
}

inline double length(const Vec &a)
{
    return std::sqrt(dot(a, a));
}

inline Vec unit(const Vec &a)
{
    const double l = length(a);
    return l > 0 ? scaled(a, 1 / l) : a;
}

inline Vec cross(const Vec &a, const Vec &b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

inline Vec apply(const Mat &m, const Vec &v)
{
    return {dot(m[0], v), dot(m[1], v), dot(m[2], v)};
}

inline Mat product(const Mat &a, const Mat &b)
{
    Mat result{};
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            result[r][c] = a[r][0] * b[0][c] + a[r][1] * b[1][c] + a[r][2] * b[2][c];
    return result;
}

/// Rotation about a unit axis.
inline Mat rotation(const Vec &k, double angle)
{
    const double c = std::cos(angle), s = std::sin(angle);
    const Mat skew{Vec{0, -k[2], k[1]}, Vec{k[2], 0, -k[0]}, Vec{-k[1], k[0], 0}};
    Mat result{};
    for (int r = 0; r < 3; ++r)
        for (int col = 0; col < 3; ++col)
            result[r][col] = (r == col ? c : 0) + s * skew[r][col] + (1 - c) * k[r] * k[col];
    return result;
}

/// The turn of a quaternion of any length.
inline Mat rotation(const kvm::Quaternion &q)
{
    const Vec axis{double(q.x), double(q.y), double(q.z)};
    return rotation(unit(axis), 2.0 * std::atan2(length(axis), double(q.w)));
}

/// Back from where a rotation leads.
inline Mat transposed(const Mat &m)
{
    return {{{m[0][0], m[1][0], m[2][0]}, {m[0][1], m[1][1], m[2][1]}, {m[0][2], m[1][2], m[2][2]}}};
}

inline double distance(const Vec &a, const Vec &b)
{
    return length(minus(a, b));
}

/// The greatest difference between any two rows.
inline double distance(const Mat &a, const Mat &b)
{
    return std::max({distance(a[0], b[0]), distance(a[1], b[1]), distance(a[2], b[2])});
}

/// The greatest difference between any element of both rotations.
inline double difference(const Mat &expected, const kvm::Matrix4 &m)
{
    double worst = 0;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            worst = std::max(worst, std::abs(expected[r][c] - double(m[4 * c + r])));
    return worst;
}

} // namespace reference

/// The same numbers on every run.
class RandomMath
{
public:
    explicit RandomMath(unsigned seed)
        : m_engine(seed)
    {
    }

    double number(double low, double high) { return low + (high - low) * (m_engine() / 4294967296.0); }
    int below(int limit) { return int(number(0, limit)); }
    kvm::Vector3 vector(double reach)
    {
        const double x = number(-reach, reach), y = number(-reach, reach), z = number(-reach, reach);
        return {float(x), float(y), float(z)};
    }
    kvm::Vector3 direction() { return (vector(1) + kvm::Vector3(0.01f, 0.02f, 0.03f)).normalized(); }
    kvm::Quaternion rotation()
    {
        const kvm::Vector3 axis = direction();
        return kvm::Quaternion::fromAxisAngle(axis, float(number(-3.1, 3.1)));
    }
    kvm::Matrix4 matrix(double reach)
    {
        kvm::Matrix4 m;
        for (float &element : m.m)
            element = float(number(-reach, reach));
        return m;
    }

private:
    std::mt19937 m_engine;
};

/// What qDebug() would print.
template <class T>
QString printed(const T &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

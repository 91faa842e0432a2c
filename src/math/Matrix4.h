#pragma once

#include "math/Vector3.h"
#include "math/Vector4.h"

namespace kvm {

struct Quaternion;

/// A 4x4 transform of column vectors, column-major: m[4 * c + r] is row r of column c, and
/// m[12], m[13], m[14] are the translation. A new matrix is the identity.
///
/// In a product the LEFT operand is the transform applied first: (a * b) * p equals b * (a * p).
/// A child's world matrix is therefore `local * parentWorld`. Quaternions multiply the other way
/// round, see Quaternion.
struct Matrix4
{
    float m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

    static constexpr Matrix4 fromTranslation(const Vector3 &t);
    static constexpr Matrix4 fromScale(const Vector3 &s); ///< s on the diagonal

    const float *data() const { return m; } ///< 16 floats in the order that OpenGL takes untransposed
    float *data() { return m; }
    constexpr float operator[](int i) const { return m[i]; }
    constexpr float &operator[](int i) { return m[i]; }

    constexpr Vector3 translation() const { return {m[12], m[13], m[14]}; }
    constexpr void setTranslation(const Vector3 &t); ///< leaves the other elements alone

    /// Makes this the rotation matrix of a unit quaternion; all 16 elements are written, so the translation is gone.
    void setRotation(const Quaternion &q);

    /// Applies only the upper left 3x3 part: what a direction needs, as it does not move.
    constexpr Vector3 transformDirection(const Vector3 &v) const;

    /// Inverse of the whole matrix. One that can't be inverted gives the identity and sets *invertible to false.
    Matrix4 inverse(bool *invertible = nullptr) const;

    /// Inverse of the rotation alone, taken by way of a quaternion: the result has no translation.
    /// The upper left 3x3 part must be a rotation without scale.
    Matrix4 rotationInverse() const;

    constexpr Matrix4 &operator*=(const Matrix4 &next); ///< `next` is applied after what stands here
    Matrix4 &operator*=(const Quaternion &next);        ///< the same with the rotation matrix of `next`
    constexpr Matrix4 &operator+=(const Vector3 &t);    ///< moves the translation
    constexpr Matrix4 &operator-=(const Vector3 &t);
};

/// `first` is applied to a point first, `second` to what comes out.
constexpr Matrix4 operator*(const Matrix4 &first, const Matrix4 &second)
{
    Matrix4 product;
    for (int i = 0; i < 4; ++i) {
        const float *l = first.m + 4 * i;
        for (int j = 0; j < 4; ++j)
            product.m[4 * i + j] =
                l[0] * second.m[j] + l[1] * second.m[4 + j] + l[2] * second.m[8 + j] + l[3] * second.m[12 + j];
    }
    return product;
}

/// Transforms a point. The fourth row is not used, there is no division by w.
constexpr Vector3 operator*(const Matrix4 &m, const Vector3 &p)
{
    return {m[0] * p.x + m[4] * p.y + m[8] * p.z + m[12], m[1] * p.x + m[5] * p.y + m[9] * p.z + m[13],
            m[2] * p.x + m[6] * p.y + m[10] * p.z + m[14]};
}

/// All four rows, for projections; the caller divides by w.
constexpr Vector4 operator*(const Matrix4 &m, const Vector4 &p)
{
    return {m[0] * p.x + m[4] * p.y + m[8] * p.z + m[12] * p.w, m[1] * p.x + m[5] * p.y + m[9] * p.z + m[13] * p.w,
            m[2] * p.x + m[6] * p.y + m[10] * p.z + m[14] * p.w, m[3] * p.x + m[7] * p.y + m[11] * p.z + m[15] * p.w};
}

/// Exact: no tolerance.
constexpr bool operator==(const Matrix4 &a, const Matrix4 &b)
{
    for (int i = 0; i < 16; ++i) {
        if (a.m[i] != b.m[i])
            return false;
    }
    return true;
}

constexpr bool operator!=(const Matrix4 &a, const Matrix4 &b)
{
    return !(a == b);
}

constexpr Matrix4 Matrix4::fromTranslation(const Vector3 &t)
{
    Matrix4 result;
    result.setTranslation(t);
    return result;
}

constexpr Matrix4 Matrix4::fromScale(const Vector3 &s)
{
    return Matrix4{{s.x, 0, 0, 0, 0, s.y, 0, 0, 0, 0, s.z, 0, 0, 0, 0, 1}};
}

constexpr void Matrix4::setTranslation(const Vector3 &t)
{
    m[12] = t.x;
    m[13] = t.y;
    m[14] = t.z;
}

constexpr Vector3 Matrix4::transformDirection(const Vector3 &v) const
{
    return {m[0] * v.x + m[4] * v.y + m[8] * v.z, m[1] * v.x + m[5] * v.y + m[9] * v.z,
            m[2] * v.x + m[6] * v.y + m[10] * v.z};
}

constexpr Matrix4 &Matrix4::operator*=(const Matrix4 &next)
{
    return *this = *this * next;
}

constexpr Matrix4 &Matrix4::operator+=(const Vector3 &t)
{
    setTranslation(translation() + t);
    return *this;
}

constexpr Matrix4 &Matrix4::operator-=(const Vector3 &t)
{
    setTranslation(translation() - t);
    return *this;
}

/// "Matrix4(", a line break, then a line for each row as one writes it on paper, every field 10 wide, and ")".
QDebug operator<<(QDebug debug, const Matrix4 &m);

static_assert(std::is_trivially_copyable<Matrix4>::value && std::is_standard_layout<Matrix4>::value, "plain floats");
static_assert(sizeof(Matrix4) == 16 * sizeof(float), "no padding");

} // namespace kvm

// Not Q_PRIMITIVE_TYPE: a container would then fill new places with zeros, and a new matrix is the identity.
Q_DECLARE_TYPEINFO(kvm::Matrix4, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(kvm::Matrix4)

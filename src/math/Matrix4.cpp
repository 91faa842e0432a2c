#include "math/Matrix4.h"

#include "math/Quaternion.h"

namespace kvm {

namespace {

// The cofactor of row r, column c. The rows and columns left are taken in cyclic order, which for
// three of four is an even permutation, so that the chessboard is the only sign.
double cofactor(const Matrix4 &m, int r, int c)
{
    const auto at = [&m, r, c](int dr, int dc) { return double(m[4 * ((c + dc) % 4) + (r + dr) % 4]); };
    const double minor = at(1, 1) * (at(2, 2) * at(3, 3) - at(2, 3) * at(3, 2))
                         - at(1, 2) * (at(2, 1) * at(3, 3) - at(2, 3) * at(3, 1))
                         + at(1, 3) * (at(2, 1) * at(3, 2) - at(2, 2) * at(3, 1));
    return (r + c) % 2 == 0 ? minor : -minor;
}

} // namespace

void Matrix4::setRotation(const Quaternion &q)
{
    const float xx = q.x * q.x, yy = q.y * q.y, zz = q.z * q.z;
    const float xy = q.x * q.y, xz = q.x * q.z, yz = q.y * q.z;
    const float wx = q.w * q.x, wy = q.w * q.y, wz = q.w * q.z;

    *this = Matrix4{{1 - 2 * yy - 2 * zz, 2 * xy + 2 * wz, 2 * xz - 2 * wy, 0, //
                     2 * xy - 2 * wz, 1 - 2 * xx - 2 * zz, 2 * wx + 2 * yz, 0, //
                     2 * wy + 2 * xz, 2 * yz - 2 * wx, 1 - 2 * xx - 2 * yy, 0, //
                     0, 0, 0, 1}};
}

Matrix4 Matrix4::inverse(bool *invertible) const
{
    // Double precision inside: a view far from the origin loses too many digits in floats.
    double cofactors[4][4];
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c)
            cofactors[r][c] = cofactor(*this, r, c);
    }
    double determinant = 0;
    for (int c = 0; c < 4; ++c)
        determinant += m[4 * c] * cofactors[0][c];

    const double factor = 1 / determinant;
    const bool ok = std::isfinite(factor);
    if (invertible)
        *invertible = ok;
    if (!ok)
        return {};

    Matrix4 result;
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c)
            result[4 * c + r] = float(cofactors[c][r] * factor);
    }
    return result;
}

Matrix4 Matrix4::rotationInverse() const
{
    return Quaternion::fromMatrix(*this).conjugate().toMatrix();
}

Matrix4 &Matrix4::operator*=(const Quaternion &next)
{
    return *this *= next.toMatrix();
}

} // namespace kvm

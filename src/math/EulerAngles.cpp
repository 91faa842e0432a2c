#include "math/EulerAngles.h"

#include <array>
#include <cmath>

namespace {

/// A rotation in double precision, w first.
using Turn = std::array<double, 4>;

Turn product(const Turn &a, const Turn &b)
{
    return {
        a[0] * b[0] - a[1] * b[1] - a[2] * b[2] - a[3] * b[3], a[1] * b[0] + a[0] * b[1] + a[2] * b[3] - a[3] * b[2],
        a[2] * b[0] + a[0] * b[2] + a[3] * b[1] - a[1] * b[3], a[3] * b[0] + a[0] * b[3] + a[1] * b[2] - a[2] * b[1]};
}

} // namespace

/// X is what is left of the rotation when Z and Y are taken off, whatever share of the freedom Z has got.
kvm::Vector3 kvm::eulerAngles(const Quaternion &rotation)
{
    const Quaternion unit = rotation.normalized();
    const double w = double(unit.w), x = double(unit.x), y = double(unit.y), z = double(unit.z);
    const double cosine = w * w + x * x - y * y - z * z; // of Y times that of Z
    const double sine = 2.0 * (x * y + w * z);
    constexpr double nothing = 1e-6;
    const double level = std::hypot(cosine, sine);
    const double aboutZ = level > nothing ? std::atan2(sine, cosine) : 0.0;
    const double aboutY = std::atan2(2.0 * (w * y - x * z), level);
    const Turn withoutZ = product({std::cos(aboutZ / 2.0), 0.0, 0.0, -std::sin(aboutZ / 2.0)}, {w, x, y, z});
    const Turn rest = product({std::cos(aboutY / 2.0), 0.0, -std::sin(aboutY / 2.0), 0.0}, withoutZ);
    const double aboutX = std::remainder(2.0 * std::atan2(rest[1], rest[0]), 2.0 * M_PI);
    return {float(aboutX), float(aboutY), float(aboutZ)};
}

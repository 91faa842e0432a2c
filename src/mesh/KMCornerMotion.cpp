#include "mesh/KMCornerMotion.h"

#include <algorithm>
#include <cmath>
#include <limits>

using kvm::Vector3;

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double negligible = 1e-6; // of an area, seen against the lengths that make it

/// Where a + b t + c t² first falls to zero, for one that is above zero just after the start.
double firstZero(double a, double b, double c)
{
    const double half = b / 2.0;
    const double inRoot = half * half - a * c;
    if (inRoot < 0.0)
        return infinite;
    if (a == 0.0)
        return c < 0.0 && b > 0.0 ? -b / c : infinite;
    const double root = std::sqrt(inRoot);
    // The form without a difference of nearly equal numbers.
    const double sum = half > 0.0 ? -(half + root) : root - half;
    double first = infinite;
    for (const double t : {sum != 0.0 ? a / sum : infinite, c != 0.0 ? sum / c : infinite}) {
        if (t > 0.0)
            first = std::min(first, t);
    }
    return first;
}

/// Of the corner between two sides, as the sides are and as they change.
double cornerLimit(const Vector3 (&side)[2], const Vector3 (&change)[2], const Vector3 &normal)
{
    double a = double(dot(normal, cross(side[1], side[0])));
    const double b = double(dot(normal, cross(change[1], side[0]) + cross(side[1], change[0])));
    const double c = double(dot(normal, cross(change[1], change[0])));
    const double sideScale = double(side[0].length() + change[0].length());
    const double scale = sideScale * double(side[1].length() + change[1].length());
    if (std::abs(a) <= negligible * scale)
        a = 0.0;
    const bool startsOpen = a > 0.0 || (a == 0.0 && b > negligible * scale);
    return startsOpen ? firstZero(a, b, c) : infinite;
}

} // namespace

Vector3 KMCornerMotion::inward(const Vector3 &from, const Vector3 &to, const Vector3 &faceNormal)
{
    return cross(to - from, faceNormal).normalized();
}

Vector3 KMCornerMotion::meet(const Vector3 &firstInward, const Vector3 &secondInward)
{
    constexpr float sharpest = 0.1f; // a corner of some 35 degrees
    return (firstInward + secondInward) / std::max(1.0f + dot(firstInward, secondInward), sharpest);
}

double KMCornerMotion::turnLimit(const QVector<Vector3> &corners, const QVector<Vector3> &motions,
                                 const Vector3 &normal)
{
    double limit = infinite;
    const int count = corners.size();
    for (int i = 0; i < count; ++i) {
        const int before = (i + count - 1) % count;
        const int after = (i + 1) % count;
        const Vector3 sides[] = {corners.at(i) - corners.at(before), corners.at(after) - corners.at(i)};
        const Vector3 changes[] = {motions.at(i) - motions.at(before), motions.at(after) - motions.at(i)};
        limit = std::min(limit, cornerLimit(sides, changes, normal));
    }
    return limit;
}

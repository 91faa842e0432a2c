#pragma once

#include "math/Spline.h"
#include "math/Vector2.h"
#include "math/Vector3.h"
#include "math/Vector4.h"

#include <QVector2D>

#include <cmath>

/// What holds for every spline, for any type of point: each function gives whether it does.
namespace splinechecks {

template <class T>
bool close(const T &a, const T &b, double tolerance)
{
    return double((a - b).length()) <= tolerance;
}

/// A point of the type T from up to four numbers.
template <class T>
T point(float x, float y, float z, float w);
template <>
inline kvm::Vector2 point(float x, float y, float, float)
{
    return {x, y};
}
template <>
inline kvm::Vector3 point(float x, float y, float z, float)
{
    return {x, y, z};
}
template <>
inline kvm::Vector4 point(float x, float y, float z, float w)
{
    return {x, y, z, w};
}
template <>
inline QVector2D point(float x, float y, float, float)
{
    return {x, y};
}

/// Unevenly spaced points without any symmetry.
template <class T>
std::vector<T> unevenPoints()
{
    return {point<T>(0, 0, 1, 3),    point<T>(1, 2, 0, 2),  point<T>(1.5f, 1, 2, 1), point<T>(5, -1, 3, 0),
            point<T>(6, 3, 1.5f, 1), point<T>(4, 4, -1, 2), point<T>(0.5f, 5, 0, 4)};
}

/// Each derivative is the slope of the one before it, by central differences inside the segments.
template <class T>
bool derivativesFit(const kvm::Spline<T> &spline)
{
    const float h = 0.01f;
    for (int i = 0; i < spline.segmentCount(); ++i) {
        const float t = 0.5f * (spline.segmentT(i) + spline.segmentT(i + 1));
        const auto at = spline.getWiggle(t), before = spline.getWiggle(t - h), after = spline.getWiggle(t + h);
        const float scale = 1 / (2 * h);
        // The central difference of a cubic is off by a sixth of the third derivative times the square of the step.
        const T cubicError = at.wiggle * (h * h / 6);
        if (!close((after.position - before.position) * scale - cubicError, at.tangent, 2e-3)
            || !close((after.tangent - before.tangent) * scale, at.curvature, 1e-2)
            || !close((after.curvature - before.curvature) * scale, at.wiggle, 5e-2))
            return false;
    }
    return true;
}

/// Position, first and second derivative are the same on both sides of each inner knot.
template <class T>
bool smoothAtKnots(const kvm::Spline<T> &spline, double tolerance = 1e-3)
{
    for (int i = 1; i < spline.segmentCount(); ++i) {
        const float knot = spline.segmentT(i);
        const float step = 1e-4f;
        const auto left = spline.getWiggle(knot - step), right = spline.getWiggle(knot + step);
        const T jump = right.curvature - left.curvature - (left.wiggle + right.wiggle) * step;
        const T bend = right.tangent - left.tangent - (left.curvature + right.curvature) * step;
        const T gap = right.position - left.position - (left.tangent + right.tangent) * step;
        if (double(jump.length()) > tolerance || double(bend.length()) > tolerance || double(gap.length()) > tolerance)
            return false;
    }
    return true;
}

/// All forms of evaluation agree with each other, at t in and outside of the range.
template <class T>
bool formsAgree(const kvm::Spline<T> &spline)
{
    for (float t = -0.5f; t < spline.maxT() + 0.5f; t += 0.17f) {
        const auto full = spline.getWiggle(t);
        if (spline.getPosition(t) != full.position || spline.getTangent(t).tangent != full.tangent
            || spline.getTangent(t).position != full.position || spline.getCurvature(t).position != full.position
            || spline.getCurvature(t).tangent != full.tangent || spline.getCurvature(t).curvature != full.curvature)
            return false;
    }
    return true;
}

/// Length of a fine polyline from a to b.
template <class T>
double polylineLength(const kvm::Spline<T> &spline, float a, float b)
{
    const int steps = 2000;
    double sum = 0;
    T previous = spline.getPosition(a);
    for (int i = 1; i <= steps; ++i) {
        const T next = spline.getPosition(a + (b - a) * float(i) / float(steps));
        sum += double((next - previous).length());
        previous = next;
    }
    return sum;
}

/// Arc lengths against the polyline, their additivity and their direction.
template <class T>
bool arcLengthsFit(const kvm::Spline<T> &spline)
{
    const float max = spline.maxT(), a = 0.3f * max, b = 0.85f * max;
    const auto fits = [](double length, double expected) { return std::abs(length - expected) < 2e-3 * expected; };
    double segments = 0;
    for (int i = 0; i < spline.segmentCount(); ++i)
        segments += double(spline.segmentArcLength(i, spline.segmentT(i), spline.segmentT(i + 1)));
    return fits(double(spline.totalLength()), polylineLength(spline, 0, max))
           && fits(double(spline.arcLength(a, b)), polylineLength(spline, a, b))
           && spline.arcLength(b, a) == spline.arcLength(a, b) && spline.arcLength(a, a) == 0
           && std::abs(segments - double(spline.totalLength())) < 1e-5 * segments;
}

/// segmentForT() at the knots, between them, at both ends and outside.
template <class T>
bool segmentsFound(const kvm::Spline<T> &spline)
{
    const int last = spline.segmentCount() - 1;
    for (int i = 0; i <= last; ++i) {
        const float start = spline.segmentT(i), end = spline.segmentT(i + 1);
        if (!(start < end) || spline.segmentForT(start) != i || spline.segmentForT(0.5f * (start + end)) != i
            || spline.segmentForT(std::nextafter(end, 0.0f)) != i)
            return false;
    }
    const int afterNaN = spline.segmentForT(NAN);
    return spline.segmentT(0) == 0 && spline.segmentT(last + 1) == spline.maxT()
           && spline.segmentForT(spline.maxT()) == last && spline.segmentForT(spline.maxT() + 1e10f) == last
           && spline.segmentForT(-1e10f) == 0 && afterNaN >= 0 && afterNaN <= last;
}

template <class T>
bool isSinglePlace(const kvm::Spline<T> &spline, const T &place)
{
    const auto full = spline.getWiggle(0.5f);
    return spline.maxT() == 0 && spline.segmentCount() == 0 && spline.segmentForT(1) == 0 && spline.segmentT(0) == 0
           && spline.totalLength() == 0 && spline.arcLength(0, 1) == 0 && spline.segmentArcLength(0, 0, 1) == 0
           && full.position == place && full.tangent == T() && full.curvature == T() && full.wiggle == T();
}

} // namespace splinechecks

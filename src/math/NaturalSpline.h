#pragma once

#include "math/SplineImpl.h"

namespace kvm {

/// What holds a NaturalSpline at its two outermost control points.
enum class SplineEnd {
    Natural,     ///< no second derivative: the curve runs out straight
    FixedTangent ///< the tangent of the parabola through the three outermost points (of the chord, with two points)
};

/// The segments of a NaturalSpline: a cubic between every two neighbouring knots, written by the positions and the
/// second derivatives at both.
template <class T, typename Real>
class NaturalSplineCommon
{
public:
    NaturalSplineCommon() = default;

    /// maxT is the parameter of the last point that the curve reaches; 0 gives no segments.
    NaturalSplineCommon(std::vector<T> points, bool includeEndpoints, Real maxT, Real alpha, SplineEnd end)
        : m_points(std::move(points))
        , m_first(includeEndpoints ? 0 : 1)
        , m_count(int(maxT))
    {
        if (m_count == 0)
            return;
        makeKnots(maxT, alpha);
        solveCurvatures(end);
    }

    int segmentCount() const { return m_count; }
    Real segmentT(int segment) const { return m_count > 0 ? m_knots[m_first + segment] : 0; }

    int segmentForT(Real t) const
    {
        if (m_count == 0)
            return 0;
        // Only the knots between two segments decide, so what lies outside falls to the first or the last.
        const auto begin = m_knots.begin() + m_first + 1;
        return int(std::upper_bound(begin, begin + m_count - 1, t) - begin);
    }

    T position(int segment, Real t) const
    {
        const Local s(*this, segment, t);
        return m_points[s.i] * s.a + m_points[s.i + 1] * s.b
               + (m_curvatures[s.i] * (s.a * (s.a * s.a - 1)) + m_curvatures[s.i + 1] * (s.b * (s.b * s.b - 1)))
                     * (s.h * s.h / 6);
    }

    T tangent(int segment, Real t) const
    {
        const Local s(*this, segment, t);
        return (m_points[s.i + 1] - m_points[s.i]) * (1 / s.h)
               + (m_curvatures[s.i] * (1 - 3 * s.a * s.a) + m_curvatures[s.i + 1] * (3 * s.b * s.b - 1)) * (s.h / 6);
    }

    T curvature(int segment, Real t) const
    {
        const Local s(*this, segment, t);
        return m_curvatures[s.i] * s.a + m_curvatures[s.i + 1] * s.b;
    }

    T wiggle(int segment, Real t) const
    {
        const Local s(*this, segment, t);
        return (m_curvatures[s.i + 1] - m_curvatures[s.i]) * (1 / s.h);
    }

private:
    // A place in a segment: the index of the point before it, the width of the segment, and the shares of both ends.
    struct Local
    {
        Local(const NaturalSplineCommon &spline, int segment, Real t)
            : i(spline.m_first + segment)
            , h(spline.width(i))
            , a((spline.m_knots[i + 1] - t) / h)
            , b((t - spline.m_knots[i]) / h)
        {
        }
        int i;
        Real h, a, b;
    };

    Real width(int i) const { return m_knots[i + 1] - m_knots[i]; }
    T slope(int i) const { return (m_points[i + 1] - m_points[i]) * (1 / width(i)); }

    void makeKnots(Real maxT, Real alpha);
    void solveCurvatures(SplineEnd end);

    std::vector<T> m_points;
    std::vector<T> m_curvatures; // second derivative at each point
    std::vector<Real> m_knots;   // parameter of each point, ascending
    int m_first = 0;             // index of the point at which the curve begins
    int m_count = 0;
};

// Knots lie apart by the distance of their points to the power of alpha. Then all are scaled, so that the curve's own
// begin at 0 and end at maxT.
template <class T, typename Real>
void NaturalSplineCommon<T, Real>::makeKnots(Real maxT, Real alpha)
{
    const int gaps = int(m_points.size()) - 1;
    std::vector<double> spacing(gaps);
    for (int i = 0; i < gaps; ++i)
        spacing[i] = std::pow(double((m_points[i + 1] - m_points[i]).length()), std::max(double(alpha), 0.0));

    // Points that coincide would divide by zero: no gap gets narrower than a thousandth of the widest.
    const double widest = *std::max_element(spacing.begin(), spacing.end());
    const double narrowest = widest > 0 ? widest * 0.001 : 1;
    std::vector<double> sums(gaps + 1, 0.0);
    for (int i = 0; i < gaps; ++i)
        sums[i + 1] = sums[i] + std::max(spacing[i], narrowest);

    const double start = sums[m_first];
    const double scale = double(maxT) / (sums[m_first + m_count] - start);
    m_knots.reserve(sums.size());
    for (double sum : sums)
        m_knots.push_back(Real((sum - start) * scale));
    m_knots[m_first + m_count] = maxT;
}

// Equal first derivatives on both sides of each inner knot give a tridiagonal system for the second derivatives. It is
// diagonally dominant with either end condition, so elimination without pivoting is safe.
template <class T, typename Real>
void NaturalSplineCommon<T, Real>::solveCurvatures(SplineEnd end)
{
    const int last = int(m_points.size()) - 1;
    std::vector<Real> upper(last + 1, Real(0)); // share of the next unknown, after elimination
    m_curvatures.assign(last + 1, T());

    if (end == SplineEnd::FixedTangent && last > 1) {
        // The tangent of the parabola lies off the first chord by h0 / (h0 + h1) of the difference of both slopes.
        const Real share = width(0) / (width(0) + width(1));
        upper[0] = Real(0.5);
        m_curvatures[0] = (slope(1) - slope(0)) * (3 * share / width(0));
    }
    for (int i = 1; i < last; ++i) {
        const Real pivot = 1 / (2 * (width(i - 1) + width(i)) - width(i - 1) * upper[i - 1]);
        upper[i] = width(i) * pivot;
        m_curvatures[i] = ((slope(i) - slope(i - 1)) * 6 - m_curvatures[i - 1] * width(i - 1)) * pivot;
    }
    if (end == SplineEnd::FixedTangent && last > 1) {
        const Real h = width(last - 1);
        const Real share = h / (h + width(last - 2));
        const T right = (slope(last - 1) - slope(last - 2)) * (6 * share / h);
        m_curvatures[last] = (right - m_curvatures[last - 1]) * (1 / (2 - upper[last - 1]));
    }
    for (int i = last - 1; i >= 0; --i)
        m_curvatures[i] = m_curvatures[i] - m_curvatures[i + 1] * upper[i];
}

/// An interpolating cubic spline: it passes through its points, continuous up to the second derivative.
///
/// alpha spaces the knots by the distances of the points: 0 evenly, 0.5 by the square roots (no cusps and no loops
/// where points lie unevenly), 1 by the distances themselves. Coincident points are allowed with any alpha.
/// With includeEndpoints the curve takes two points or more and begins at the first one. Without, it takes four or
/// more and runs from the second to the last but one; the outermost only shape it.
template <class T, typename Real = float>
class NaturalSpline final : public SplineImpl<NaturalSplineCommon, T, Real>
{
public:
    explicit NaturalSpline(const std::vector<T> &points, bool includeEndpoints = true, Real alpha = 0,
                           SplineEnd end = SplineEnd::Natural)
        : SplineImpl<NaturalSplineCommon, T, Real>(points, includeEndpoints)
    {
        this->setCommon(NaturalSplineCommon<T, Real>(points, includeEndpoints, this->maxT(), alpha, end));
    }
};

} // namespace kvm

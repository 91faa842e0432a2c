#pragma once

#include "math/SplineImpl.h"

namespace kvm {

/// The segments of a UniformCubicBSpline: segment i lies among the points i to i + 3 and begins at t = i.
template <class T, typename Real>
class UniformCubicBSplineCommon
{
public:
    UniformCubicBSplineCommon() = default;
    explicit UniformCubicBSplineCommon(std::vector<T> points)
        : m_points(std::move(points))
    {
    }

    int segmentCount() const { return std::max(int(m_points.size()) - 3, 0); }
    Real segmentT(int segment) const { return Real(segment); }

    int segmentForT(Real t) const
    {
        if (!(t > 0)) // NaN goes to the first as well
            return 0;
        const int last = std::max(segmentCount() - 1, 0);
        return t < Real(last) ? int(t) : last;
    }

    T position(int segment, Real t) const
    {
        const Real u = t - Real(segment);
        const Real v = 1 - u;
        return blend(segment, v * v * v / 6, (u * u * (3 * u - 6) + 4) / 6, (v * v * (3 * v - 6) + 4) / 6,
                     u * u * u / 6);
    }

    T tangent(int segment, Real t) const
    {
        const Real u = t - Real(segment);
        const Real v = 1 - u;
        return blend(segment, -v * v / 2, u * (3 * u - 4) / 2, -v * (3 * v - 4) / 2, u * u / 2);
    }

    T curvature(int segment, Real t) const
    {
        const Real u = t - Real(segment);
        const Real v = 1 - u;
        return blend(segment, v, 3 * u - 2, 3 * v - 2, u);
    }

    T wiggle(int segment, Real) const { return blend(segment, -1, 3, -3, 1); }

private:
    T blend(int segment, Real a, Real b, Real c, Real d) const
    {
        const T *p = m_points.data() + segment;
        return p[0] * a + p[1] * b + p[2] * c + p[3] * d;
    }

    std::vector<T> m_points;
};

/// A smooth curve that follows its control points without passing through them; continuous up to the second
/// derivative. Moving a point changes four segments and nothing else. A segment takes four points, so t ends at the
/// number of points minus 3.
template <class T, typename Real = float>
class UniformCubicBSpline final : public SplineImpl<UniformCubicBSplineCommon, T, Real>
{
public:
    explicit UniformCubicBSpline(const std::vector<T> &points)
        : SplineImpl<UniformCubicBSplineCommon, T, Real>(points, false)
    {
        this->setCommon(UniformCubicBSplineCommon<T, Real>(points));
    }
};

} // namespace kvm

#pragma once

#include "math/GaussLegendre.h"
#include "math/Spline.h"

#include <cmath>

namespace kvm {

/// All of a spline that follows from its segments, which `Common` describes:
///   int segmentCount() const; int segmentForT(Real t) const; Real segmentT(int segment) const;
///   T position, tangent, curvature, wiggle (int segment, Real t) const: the segment's polynomial and its derivatives.
/// Common is asked about positions and derivatives only when it has a segment.
template <template <class, typename> class Common, class T, typename Real = float>
class SplineImpl : public Spline<T, Real>
{
public:
    using typename Spline<T, Real>::Tangent;
    using typename Spline<T, Real>::Curvature;
    using typename Spline<T, Real>::Wiggle;

    T getPosition(Real t) const override
    {
        return hasSegments() ? m_common.position(segmentForT(t), t) : singlePlace();
    }

    Tangent getTangent(Real t) const override
    {
        Tangent result;
        fill(result, t);
        return result;
    }

    Curvature getCurvature(Real t) const override
    {
        Curvature result;
        fill(result, t);
        if (hasSegments())
            result.curvature = m_common.curvature(segmentForT(t), t);
        return result;
    }

    Wiggle getWiggle(Real t) const override
    {
        Wiggle result;
        static_cast<Curvature &>(result) = SplineImpl::getCurvature(t);
        if (hasSegments())
            result.wiggle = m_common.wiggle(segmentForT(t), t);
        return result;
    }

    Real arcLength(Real a, Real b) const override
    {
        if (!hasSegments())
            return 0;
        if (b < a)
            std::swap(a, b);

        const int first = segmentForT(a);
        const int last = segmentForT(b);
        Real sum = 0;
        for (int i = first; i <= last; ++i)
            sum += segmentArcLength(i, i == first ? a : segmentT(i), i == last ? b : segmentT(i + 1));
        return sum;
    }

    Real totalLength() const override { return arcLength(0, this->maxT()); }

    bool isLooping() const override { return false; }
    int segmentCount() const override { return m_common.segmentCount(); }
    int segmentForT(Real t) const override { return m_common.segmentForT(t); }
    Real segmentT(int segment) const override { return m_common.segmentT(segment); }

    Real segmentArcLength(int segment, Real a, Real b) const override
    {
        if (!hasSegments())
            return 0;
        const Real length =
            gaussLegendre(a, b, [this, segment](Real t) { return Real(m_common.tangent(segment, t).length()); });
        return std::abs(length);
    }

protected:
    SplineImpl(std::vector<T> points, bool includeEndpoints)
        : Spline<T, Real>(std::move(points), includeEndpoints)
    {
    }

    void setCommon(Common<T, Real> common) { m_common = std::move(common); }

private:
    bool hasSegments() const { return m_common.segmentCount() > 0; }
    T singlePlace() const { return this->points().empty() ? T() : this->points().front(); }

    void fill(Tangent &result, Real t) const
    {
        result.position = SplineImpl::getPosition(t);
        if (hasSegments())
            result.tangent = m_common.tangent(segmentForT(t), t);
    }

    Common<T, Real> m_common;
};

} // namespace kvm

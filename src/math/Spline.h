#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace kvm {

/// A curve through or along control points, by a parameter t from 0 to maxT().
///
/// T is Vector2, Vector3, Vector4 or QVector2D: anything with + and -, a product with Real, length(), and a zero as
/// its default value. Derivatives are with respect to t, none is normalised.
/// A t outside the range continues the polynomial of the first or the last segment.
/// With too few points for a segment (each class says how many it takes) the curve is a single place: maxT() and
/// segmentCount() are 0, the position is the first control point, or zero without one, all derivatives and lengths 0.
template <class T, typename Real = float>
class Spline
{
public:
    struct Tangent
    {
        T position = T();
        T tangent = T(); ///< first derivative
    };
    struct Curvature : Tangent
    {
        T curvature = T(); ///< second derivative
    };
    struct Wiggle : Curvature
    {
        T wiggle = T(); ///< third derivative, constant within a segment
    };

    virtual ~Spline() = default;

    virtual T getPosition(Real t) const = 0;
    virtual Tangent getTangent(Real t) const = 0;
    virtual Curvature getCurvature(Real t) const = 0;
    virtual Wiggle getWiggle(Real t) const = 0;

    virtual Real arcLength(Real a, Real b) const = 0; ///< from a to b, in either order; never negative
    virtual Real totalLength() const = 0;

    virtual bool isLooping() const = 0; ///< whether the end joins the start
    virtual int segmentCount() const = 0;
    virtual int segmentForT(Real t) const = 0;    ///< the segment that holds t; a t outside gets the first or the last
    virtual Real segmentT(int segment) const = 0; ///< where a segment begins; segmentT(segmentCount()) is maxT()
    virtual Real segmentArcLength(int segment, Real a, Real b) const = 0; ///< of the segment's polynomial from a to b

    Real maxT() const { return m_maxT; }
    const std::vector<T> &points() const { return m_points; } ///< the control points as they were given

protected:
    /// Without end points the first and the last point only shape the curve, which begins at the second.
    Spline(std::vector<T> points, bool includeEndpoints)
        : m_points(std::move(points))
    {
        const int last = int(m_points.size()) - (includeEndpoints ? 1 : 3);
        m_maxT = Real(std::max(last, 0));
    }

private:
    std::vector<T> m_points;
    Real m_maxT = 0;
};

/// How splines are held: tools, modifiers and widgets share one.
template <class T>
using SplinePointer = std::shared_ptr<Spline<T, float>>;

} // namespace kvm

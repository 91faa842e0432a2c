#include "modifiers/KMFFDDeform.h"

#include "mesh/KMVertex.h"

#include <algorithm>
#include <cmath>

using kvm::Vector3;
using kvm::Vector4;

namespace {

constexpr int usualCount = 3;         // of a fresh box, along each side
constexpr double tolerance = 0.0001f; // so far outside a point belongs to the box still

double factorial(int n)
{
    return n < 2 ? 1.0 : n * factorial(n - 1);
}

} // namespace

void KMFFDDeform::setBox(const KMFFDBox &box)
{
    m_box = box;
    m_isUsual = box.nodeCounts == std::array<int, 3>{{usualCount, usualCount, usualCount}};
    m_points.resize(int(box.pointCount()));
    for (int axis = 0; axis < 3; ++axis) {
        const int degree = box.nodeCounts[size_t(axis)] - 1;
        m_binomials[axis].resize(degree + 1);
        for (int i = 0; i <= degree; ++i)
            m_binomials[axis][i] = std::round(factorial(degree) / (factorial(i) * factorial(degree - i)));
    }
}

bool KMFFDDeform::isOf(const QVector<KMFFDPoint> &points) const
{
    return std::equal(points.begin(), points.end(), m_points.begin(), m_points.end(),
                      [](const KMFFDPoint &point, const Vector4 &used) { return Vector4(point.vertex->pos) == used; });
}

void KMFFDDeform::prepare(const KMTransform &transform, const QVector<KMFFDPoint> &points, float power)
{
    std::transform(points.begin(), points.end(), m_points.begin(),
                   [](const KMFFDPoint &point) { return Vector4(point.vertex->pos); });
    m_power = power;
    prepareAxes(transform);
}

/// A scale below zero turns the box inside out, but not what its inside is. Along an axis on which the box has no
/// length all are in the middle of it.
void KMFFDDeform::prepareAxes(const KMTransform &transform)
{
    m_centre = transform.translation;
    for (int axis = 0; axis < 3; ++axis) {
        const double length = double(m_box.size[axis]) * double(transform.scale[axis]);
        Vector3 direction;
        direction[axis] = 1.0f;
        m_axes[axis].direction = transform.rotation.rotate(direction);
        m_axes[axis].reach = std::fabs(length) / 2.0 + tolerance;
        m_axes[axis].factor = std::fabs(length) < tolerance ? 0.0 : 1.0 / length;
    }
}

/// Powers one from the other. They are of double precision, so that the rounding of a high degree doesn't show.
template <int Count>
void KMFFDDeform::fillBasis(int axis, double t, float *basis) const
{
    const double *binomials = m_binomials[axis].constData();
    const int degree = (Count ? Count : m_box.nodeCounts[size_t(axis)]) - 1;
    double powers[Count ? Count : KMFFDBox::MaxNodes];
    powers[0] = 1.0;
    for (int i = 1; i <= degree; ++i)
        powers[i] = powers[i - 1] * t;
    double rest = 1.0;
    for (int i = degree; i >= 0; --i) {
        basis[i] = float(binomials[i] * powers[i] * rest);
        rest *= 1.0 - t;
    }
}

/// With so many points along each side, which the compiler can go by, or with any number for 0. They are vectors of
/// four, which is one operation where three numbers are three.
template <int Count>
Vector3 KMFFDDeform::sumAt(const double (&place)[3]) const
{
    float basis[3][Count ? Count : KMFFDBox::MaxNodes];
    for (int axis = 0; axis < 3; ++axis)
        fillBasis<Count>(axis, place[axis], basis[axis]);
    const auto count = [this](size_t axis) { return Count ? Count : m_box.nodeCounts[axis]; };
    const Vector4 *point = m_points.constData();
    Vector4 sum;
    for (int i = 0; i < count(0); ++i) {
        Vector4 layer;
        for (int j = 0; j < count(1); ++j) {
            Vector4 row;
            for (int k = 0; k < count(2); ++k)
                row += *point++ * basis[2][k];
            layer += row * basis[1][j];
        }
        sum += layer * basis[0][i];
    }
    return {sum.x, sum.y, sum.z};
}

/// What is no number lies nowhere.
Vector3 KMFFDDeform::operator()(const Vector3 &p) const
{
    if (m_power == 0.0f)
        return p;
    const Vector3 way = p - m_centre; // far from the origin as exact as near it
    double place[3];
    for (int axis = 0; axis < 3; ++axis) {
        const double along = double(dot(m_axes[axis].direction, way));
        if (!(std::fabs(along) <= m_axes[axis].reach))
            return p;
        place[axis] = 0.5 + along * m_axes[axis].factor;
    }
    return powered(p, m_isUsual ? sumAt<usualCount>(place) : sumAt<0>(place));
}

Vector3 KMFFDDeform::powered(const Vector3 &p, const Vector3 &sum) const
{
    if (m_power == 1.0f)
        return sum;
    const Vector3 way = sum - p;
    const float length = way.length();
    return length == 0.0f ? p : p + way * (length * m_power / length);
}

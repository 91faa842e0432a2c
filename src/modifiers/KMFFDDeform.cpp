#include "modifiers/KMFFDDeform.h"

#include "mesh/KMVertex.h"

#include <algorithm>
#include <cmath>

using kvm::Vector3;
using kvm::Vector4;

namespace {

/// A side of the box by the axis of its normal, and on which end of that axis it is.
struct Side
{
    int axis;
    float end;
};

constexpr float tolerance = 0.0001f; // so far outside a point belongs to the box still

constexpr Side sides[6] = {{2, -1.0f}, {0, 1.0f}, {2, 1.0f}, {0, -1.0f}, {1, 1.0f}, {1, -1.0f}};

double factorial(int n)
{
    return n < 2 ? 1.0 : n * factorial(n - 1);
}

Vector3 alongAxis(int axis, float length)
{
    Vector3 v;
    v[axis] = length;
    return v;
}

} // namespace

void KMFFDDeform::setBox(const KMFFDBox &box)
{
    m_box = box;
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
    preparePlanes(transform);
    prepareCoordinates(transform);
}

/// A scale below zero turns the box inside out, but not what its inside is.
void KMFFDDeform::preparePlanes(const KMTransform &transform)
{
    for (int i = 0; i < 6; ++i) {
        const Side &side = sides[i];
        const float turn = transform.scale[side.axis] < 0.0f ? -1.0f : 1.0f;
        const Vector3 centre = KMFFDBox::toWorld(transform, alongAxis(side.axis, side.end * m_box.size[side.axis] / 2));
        m_planes[i].normal = transform.rotation.rotate(alongAxis(side.axis, -side.end * turn));
        m_planes[i].d = -dot(m_planes[i].normal, centre);
    }
}

/// The way into the box, its scale and the division by its sides in one. Along an axis on which the box has
/// no length all are in the middle of it.
void KMFFDDeform::prepareCoordinates(const KMTransform &transform)
{
    for (int axis = 0; axis < 3; ++axis) {
        const double length = double(m_box.size[axis]) * double(transform.scale[axis]);
        const double factor = std::fabs(length) < double(tolerance) ? 0.0 : 1.0 / length;
        const Vector3 direction = transform.rotation.rotate(alongAxis(axis, 1.0f));
        double offset = 0.5;
        for (int c = 0; c < 3; ++c) {
            m_coordinates[axis].direction[c] = float(double(direction[c]) * factor);
            offset -= double(direction[c]) * factor * double(transform.translation[c]);
        }
        m_coordinates[axis].offset = float(offset);
    }
}

/// What is no number lies nowhere.
bool KMFFDDeform::isInside(const Vector3 &p) const
{
    for (const Plane &plane : m_planes) {
        if (!(dot(plane.normal, p) + plane.d >= -tolerance))
            return false;
    }
    return true;
}

Vector3 KMFFDDeform::operator()(const Vector3 &p) const
{
    if (m_power == 0.0f || !isInside(p))
        return p;
    const Vector3 sum = sumAt(p);
    if (m_power == 1.0f)
        return sum;
    const Vector3 way = sum - p;
    const float length = way.length();
    return length == 0.0f ? p : p + way * (length * m_power / length);
}

/// Powers one from the other. They are of double precision, so that the rounding of a high degree doesn't show.
void KMFFDDeform::fillBasis(int axis, double t, float *basis) const
{
    const QVector<double> &binomials = m_binomials[axis];
    const int degree = binomials.size() - 1;
    double powers[KMFFDBox::MaxNodes];
    powers[0] = 1.0;
    for (int i = 1; i <= degree; ++i)
        powers[i] = powers[i - 1] * t;
    double rest = 1.0;
    for (int i = degree; i >= 0; --i) {
        basis[i] = float(binomials.at(i) * powers[i] * rest);
        rest *= 1.0 - t;
    }
}

Vector3 KMFFDDeform::sumAt(const Vector3 &p) const
{
    float basis[3][KMFFDBox::MaxNodes];
    for (int axis = 0; axis < 3; ++axis)
        fillBasis(axis, double(dot(m_coordinates[axis].direction, p) + m_coordinates[axis].offset), basis[axis]);
    const Vector4 *point = m_points.constData();
    Vector4 sum;
    for (int i = 0; i < m_box.nodeCounts[0]; ++i) {
        Vector4 layer;
        for (int j = 0; j < m_box.nodeCounts[1]; ++j) {
            Vector4 row;
            for (int k = 0; k < m_box.nodeCounts[2]; ++k)
                row += *point++ * basis[2][k];
            layer += row * basis[1][j];
        }
        sum += layer * basis[0][i];
    }
    return {sum.x, sum.y, sum.z};
}

#include "render/KMPickRay.h"

#include "render/KMCameraNode.h"

#include <cmath>

namespace {

using Vector = std::array<double, 3>;

Vector wide(const kvm::Vector3 &v)
{
    return {double(v.x), double(v.y), double(v.z)};
}

Vector operator-(const Vector &a, const Vector &b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

double dot(const Vector &a, const Vector &b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector cross(const Vector &a, const Vector &b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

} // namespace

KMPickRay::KMPickRay(const KMCameraNode &camera, const QPointF &position)
    : m_position(position)
    , m_ortho(camera.isOrtho())
    , m_eye(camera.eye())
    , m_axis(camera.viewAxis())
{
    const float distance = camera.distance();
    const kvm::Vector3 ahead = camera.unproject(float(position.x()), float(position.y()), m_eye + m_axis * distance);
    const Vector far = wide(ahead);
    const Vector axis = wide(m_axis);
    m_origin = m_ortho ? far : wide(m_eye);
    m_direction = m_ortho ? axis : far - m_origin;
    const double perDepth = 1.0 / dot(m_direction, axis);
    for (size_t i = 0; i < 3; ++i) {
        if (m_ortho)
            m_origin[i] -= axis[i] * double(distance);
        m_direction[i] *= perDepth;
    }
}

double KMPickRay::depthOf(const kvm::Vector3 &point) const
{
    return dot(wide(point) - wide(m_eye), wide(m_axis));
}

double KMPickRay::depthBetween(const double *depths, const double *weights, int count) const
{
    double sum = 0;
    for (int i = 0; i < count; ++i)
        sum += m_ortho ? weights[i] * depths[i] : weights[i] / depths[i];
    return m_ortho ? sum : 1.0 / sum;
}

kvm::Vector3 KMPickRay::pointAt(double depth) const
{
    return {float(m_origin[0] + m_direction[0] * depth), float(m_origin[1] + m_direction[1] * depth),
            float(m_origin[2] + m_direction[2] * depth)};
}

bool KMPickRay::hits(const kvm::Vector3 &a, const kvm::Vector3 &b, const kvm::Vector3 &c, double &depth) const
{
    const Vector toB = wide(b) - wide(a);
    const Vector toC = wide(c) - wide(a);
    const Vector normal = cross(m_direction, toC);
    const double determinant = dot(toB, normal);
    if (determinant == 0.0)
        return false;
    const Vector fromA = m_origin - wide(a);
    const double weightB = dot(fromA, normal) / determinant;
    const Vector side = cross(fromA, toB);
    const double weightC = dot(m_direction, side) / determinant;
    if (!(weightB >= 0.0 && weightC >= 0.0 && weightB + weightC <= 1.0))
        return false;
    const double at = dot(toC, side) / determinant;
    if (!(at > 0.0))
        return false;
    depth = at;
    return true;
}

bool KMPickRay::hitsInWindow(const kvm::Vector3 *corners, const kvm::Vector3 *windows, double &depth) const
{
    double dx[3], dy[3];
    for (int c = 0; c < 3; ++c) {
        dx[c] = double(windows[c].x) - m_position.x();
        dy[c] = double(windows[c].y) - m_position.y();
    }
    double weights[3];
    double area = 0.0;
    for (int c = 0; c < 3; ++c) {
        const int b = (c + 1) % 3, d = (c + 2) % 3;
        weights[c] = dx[b] * dy[d] - dx[d] * dy[b];
        area += weights[c];
    }
    if (area == 0.0)
        return false;
    double depths[3];
    for (int c = 0; c < 3; ++c) {
        weights[c] /= area;
        if (!(weights[c] >= 0.0))
            return false;
        depths[c] = depthOf(corners[c]);
    }
    depth = depthBetween(depths, weights, 3);
    return true;
}

bool KMPickRay::hitsPlane(const kvm::Vector3 &a, const kvm::Vector3 &b, const kvm::Vector3 &c, double &depth) const
{
    const Vector normal = cross(wide(b) - wide(a), wide(c) - wide(a));
    const double steepness = dot(m_direction, normal);
    const double at = dot(wide(a) - m_origin, normal) / steepness;
    if (steepness == 0.0 || !std::isfinite(at) || at <= 0.0)
        return false;
    depth = at;
    return true;
}

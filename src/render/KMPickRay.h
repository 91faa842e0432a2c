#pragma once

#include "math/Vector3.h"

#include <QPointF>

#include <array>

class KMCameraNode;

/// Looks from the viewer through one place of the window into the scene. Reckons in double precision: a pick decides
/// between surfaces that lie close to one another, and far from the eye.
class KMPickRay
{
public:
    KMPickRay(const KMCameraNode &camera, const QPointF &position);

    /// Along the view axis from the eye; behind the eye it is below 0.
    double depthOf(const kvm::Vector3 &point) const;
    /// The depth on a line or a face at a place of the window, from the depths of its corners there and their weights,
    /// which add up to 1: in perspective it is the inverse that runs evenly over the window.
    double depthBetween(const double *depths, const double *weights, int count) const;
    kvm::Vector3 pointAt(double depth) const;

    /// The depth at which it meets a triangle from either side. False when it misses it, or meets it behind the eye.
    bool hits(const kvm::Vector3 &a, const kvm::Vector3 &b, const kvm::Vector3 &c, double &depth) const;
    /// The same by the window coordinates of three corners that are all in view: triangles that share a side there
    /// leave no gap between them.
    bool hitsInWindow(const kvm::Vector3 *corners, const kvm::Vector3 *windows, double &depth) const;
    /// The same for the plane of the triangle, all over it.
    bool hitsPlane(const kvm::Vector3 &a, const kvm::Vector3 &b, const kvm::Vector3 &c, double &depth) const;

private:
    using Vector = std::array<double, 3>;

    QPointF m_position; // in the window
    bool m_ortho;
    kvm::Vector3 m_eye;
    kvm::Vector3 m_axis;
    Vector m_origin;    // at depth 0
    Vector m_direction; // to depth 1
};

#pragma once

#include "math/Vector4.h"
#include "modifiers/KMFFDLattice.h"

#include <QVector>

/// What a lattice makes of a point: the sum of its control points, each weighted by the product of the Bernstein
/// polynomials of its three numbers at the place of the point in the box.
class KMFFDDeform
{
public:
    void setBox(const KMFFDBox &box); ///< takes memory; the rest doesn't

    /// For the points to come. The control points are those of the box, in its order.
    void prepare(const KMTransform &transform, const QVector<KMFFDPoint> &points, float power);
    bool isOf(const QVector<KMFFDPoint> &points) const; ///< the points are where they were then
    kvm::Vector3 operator()(const kvm::Vector3 &p) const;

private:
    /// One of the three directions of the box.
    struct Axis
    {
        kvm::Vector3 direction;
        double reach;  ///< from the centre to its sides, with what still counts as inside
        double factor; ///< makes of a way along it one of the three numbers, which are 0.5 at the centre
    };

    template <int Count>
    kvm::Vector3 sumAt(const double (&place)[3]) const;
    kvm::Vector3 powered(const kvm::Vector3 &p, const kvm::Vector3 &sum) const;
    template <int Count>
    void fillBasis(int axis, double t, float *basis) const;
    void prepareAxes(const KMTransform &transform);

    KMFFDBox m_box;
    bool m_isUsual = false;
    float m_power = 1.0f;
    kvm::Vector3 m_centre;
    Axis m_axes[3] = {};
    QVector<double> m_binomials[3];
    QVector<kvm::Vector4> m_points;
};

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
    /// Two opposite sides: the distance of a point is n p + low from one of them, and high - n p from the other.
    struct Sides
    {
        kvm::Vector3 normal;
        float low;
        float high;
    };
    /// One of the three numbers that say where a point is in the box, from 0 to 1.
    struct Coordinate
    {
        kvm::Vector3 direction;
        float offset;
    };

    bool isInside(const kvm::Vector3 &p) const;
    template <int Count>
    kvm::Vector3 sumAt(const kvm::Vector3 &p) const;
    template <int Count>
    void fillBasis(int axis, double t, float *basis) const;
    void prepareSides(const KMTransform &transform);
    void prepareCoordinates(const KMTransform &transform);

    KMFFDBox m_box;
    bool m_isUsual = false;
    float m_power = 1.0f;
    Sides m_sides[3] = {};
    Coordinate m_coordinates[3] = {};
    QVector<double> m_binomials[3];
    QVector<kvm::Vector4> m_points;
};

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
    struct Plane
    {
        kvm::Vector3 normal; ///< into the box
        float d;
    };
    /// One of the three numbers that say where a point is in the box, from 0 to 1.
    struct Coordinate
    {
        kvm::Vector3 direction;
        float offset;
    };

    bool isInside(const kvm::Vector3 &p) const;
    kvm::Vector3 sumAt(const kvm::Vector3 &p) const;
    void fillBasis(int axis, double t, float *basis) const;
    void preparePlanes(const KMTransform &transform);
    void prepareCoordinates(const KMTransform &transform);

    KMFFDBox m_box;
    float m_power = 1.0f;
    Plane m_planes[6] = {};
    Coordinate m_coordinates[3] = {};
    QVector<double> m_binomials[3];
    QVector<kvm::Vector4> m_points;
};

#pragma once

#include "math/Matrix4.h"
#include "math/Quaternion.h"
#include "mesh/KMSelectionTransform.h"

/// What a drag does to the points that it takes along. Coordinates that it doesn't concern keep every bit.
struct KMDragTransform
{
    using Kind = KMSelectionTransform::Kind;

    Kind kind = Kind::Move;
    kvm::Vector3 delta;            ///< of a move
    kvm::Vector3 centre;           ///< of the other two
    kvm::Vector3 factors{1, 1, 1}; ///< of a scaling, along the axes
    kvm::Quaternion axes;          ///< of the handle
    kvm::Vector3 axis;             ///< of a rotation, unit length
    float angle = 0.0f;            ///< radians

    kvm::Quaternion turn() const { return kvm::Quaternion::fromAxisAngle(axis, angle); }
    bool isIdentity() const;
};

/// The same, ready for many points.
class KMDragMap
{
public:
    explicit KMDragMap(const KMDragTransform &transform);

    kvm::Vector3 operator()(const kvm::Vector3 &point) const
    {
        return point + (m_isMove ? m_delta : m_growth.transformDirection(point - m_centre));
    }

private:
    bool m_isMove;
    kvm::Vector3 m_delta;
    kvm::Vector3 m_centre;
    kvm::Matrix4 m_growth; // what is added to a point, by its place about the centre
};

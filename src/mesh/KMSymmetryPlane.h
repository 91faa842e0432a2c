#pragma once

#include "math/Vector3.h"

class KMMeshNode;

/// A plane of symmetry in world space. That of a mesh is the one of its frame that stands on the x axis.
class KMSymmetryPlane
{
public:
    explicit KMSymmetryPlane(const KMMeshNode &mesh);                        ///< as the frame is now
    KMSymmetryPlane(const kvm::Vector3 &origin, const kvm::Vector3 &normal); ///< a normal of unit length

    const kvm::Vector3 &normal() const { return m_normal; } ///< unit length
    float distance(const kvm::Vector3 &point) const;        ///< above 0 on the side of the normal
    kvm::Vector3 reflected(const kvm::Vector3 &point) const;
    kvm::Vector3 reflectedWay(const kvm::Vector3 &way) const; ///< of a direction, wherever the plane stands

private:
    kvm::Vector3 m_normal;
    kvm::Vector3 m_origin;
};

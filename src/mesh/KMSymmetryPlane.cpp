#include "mesh/KMSymmetryPlane.h"

#include "math/Matrix4.h"
#include "mesh/KMMeshNode.h"

KMSymmetryPlane::KMSymmetryPlane(const KMMeshNode &mesh)
{
    const kvm::Matrix4 frame = mesh.worldMatrix();
    m_normal = frame.transformDirection({1.0f, 0.0f, 0.0f}).normalized();
    m_origin = frame.translation();
}

KMSymmetryPlane::KMSymmetryPlane(const kvm::Vector3 &origin, const kvm::Vector3 &normal)
    : m_normal(normal)
    , m_origin(origin)
{
}

float KMSymmetryPlane::distance(const kvm::Vector3 &point) const
{
    return dot(point - m_origin, m_normal);
}

kvm::Vector3 KMSymmetryPlane::reflected(const kvm::Vector3 &point) const
{
    return point - m_normal * (2.0f * distance(point));
}

kvm::Vector3 KMSymmetryPlane::reflectedWay(const kvm::Vector3 &way) const
{
    return way - m_normal * (2.0f * dot(way, m_normal));
}

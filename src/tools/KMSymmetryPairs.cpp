#include "tools/KMSymmetryPairs.h"

#include "mesh/KMMeshNode.h"

#include <QSet>

#include <cmath>

KMSymmetryPairs::KMSymmetryPairs(const KMMeshNode &mesh, float tolerance)
    : m_mesh(mesh)
    , m_tolerance(tolerance)
    , m_map(mesh, tolerance)
{
}

KMSymmetryPairs::Roles KMSymmetryPairs::rolesOf(const QVector<int> &selected, const kvm::Vector3 &grabbedAt) const
{
    const QSet<int> isSelected(selected.begin(), selected.end());
    const float grabbed = m_map.plane().distance(grabbedAt);
    const float leadingSide = grabbed < -m_tolerance ? -1.0f : 1.0f;
    const auto follows = [&](int v) {
        const int image = imageOf(v);
        return image >= 0 && !isOnPlane(v) && isSelected.contains(image) && imageOf(image) == v
               && m_map.plane().distance(m_mesh.position(v)) * leadingSide < 0.0f;
    };
    Roles roles;
    for (const int v : selected) {
        if (!follows(v))
            roles.leaders << v;
    }
    QSet<int> taken(roles.leaders.begin(), roles.leaders.end());
    for (const int leader : std::as_const(roles.leaders)) {
        const int image = imageOf(leader);
        if (image < 0 || isOnPlane(leader) || taken.contains(image))
            continue;
        taken.insert(image);
        roles.followers.append({image, leader});
    }
    return roles;
}

kvm::Vector3 KMSymmetryPairs::onPlane(const kvm::Vector3 &point) const
{
    return (point + reflected(point)) * 0.5f;
}

#pragma once

#include "math/Vector3.h"
#include "mesh/KMMirrorMap.h"

#include <QPair>
#include <QVector>

/// How the vertices of a drag with symmetry hang together: leaders go where the drag takes them, each follower is the
/// mirror image of its leader, and what stands on the plane stays there.
///
/// Where a vertex and its image are both selected, the one on the side where the drag was grabbed leads; grabbed at
/// the plane, it is the side of the plane's normal.
class KMSymmetryPairs
{
public:
    /// Images are looked for within the tolerance, in world units.
    KMSymmetryPairs(const KMMeshNode &mesh, float tolerance);

    struct Roles
    {
        QVector<int> leaders;               ///< ascending; those on the plane too
        QVector<QPair<int, int>> followers; ///< vertex and its leader
    };
    Roles rolesOf(const QVector<int> &selected, const kvm::Vector3 &grabbedAt) const; ///< ascending indices

    bool isOnPlane(int vertex) const { return m_map.isOnPlane(vertex); }
    int imageOf(int vertex) const { return m_map.vertexImage(vertex); } ///< -1 when there is none
    kvm::Vector3 reflected(const kvm::Vector3 &point) const { return m_map.plane().reflected(point); }
    kvm::Vector3 onPlane(const kvm::Vector3 &point) const; ///< the nearest place there

private:
    const KMMeshNode &m_mesh;
    float m_tolerance;
    KMMirrorMap m_map;
};

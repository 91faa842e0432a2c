#pragma once

#include "math/Matrix4.h"
#include "math/Vector3.h"

#include <QPair>
#include <QVector>

class KMMeshNode;

/// Wire models of what has a size or a place, but no surface.
namespace KMGizmoShape {

struct Wire
{
    QVector<kvm::Vector3> points;
    QVector<QPair<int, int>> lines; ///< two points by index
};

Wire sphere(float diameter);
Wire box(const kvm::Vector3 &size);           ///< full extents
Wire capsule(float diameter, float straight); ///< along Z; the length of the part between the two half spheres
Wire axesCube(float size);                    ///< a cube with a line out of it along each axis

/// Makes a mesh the wire at a place. Points are moved where the mesh has as many of them and as many lines already:
/// none of the shapes above has the numbers of another one.
void show(KMMeshNode &mesh, const Wire &wire, const kvm::Matrix4 &place);

} // namespace KMGizmoShape

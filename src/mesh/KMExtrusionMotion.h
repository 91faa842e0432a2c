#pragma once

#include "mesh/KMExtrusionShape.h"
#include "mesh/KMSymmetryPlane.h"

#include <QPair>

/// Where the points of an extrusion go: a direction for each of them, or the way for a length of one.
namespace KMExtrusionMotion {

using Directions = QVector<kvm::Vector3>; ///< a place for each point of the shape
using Pairs = QVector<QPair<int, int>>;   ///< points that are mirror images of each other; on the plane, of themselves

Directions alongNormals(const KMExtrusionShape &shape); ///< of unit length, or zero where the faces have no direction
Directions inward(const KMExtrusionShape &shape);       ///< in the faces, from the sides of the groups

/// Makes both points of a pair go the mirrored way.
void mirror(const KMSymmetryPlane &plane, const Pairs &pairs, Directions *directions);

/// Goes so far along the directions, but in each group only until its faces would turn over.
QVector<kvm::Vector3> movedInFaces(const KMExtrusionShape &shape, const Directions &directions, float value);

} // namespace KMExtrusionMotion

#pragma once

#include "math/Vector3.h"

#include <QVector>

/// Splits a polygon into faces of three and four corners.
namespace KMPolygonTiles {

using Tile = QVector<int>; ///< places in the polygon, in the direction in which it runs

/// All stand on the corners of the polygon alone; with four corners or fewer it is left whole. Slivers are avoided as
/// far as the shape allows, and only what is nearly flat is joined to a quad.
QVector<Tile> split(const QVector<kvm::Vector3> &polygon);

} // namespace KMPolygonTiles

#pragma once

#include <QVector>

class KMMeshStore;

/// Faces on top of one another: lines, triangles or quads with the same corners, in whatever order.
namespace KMOverlappedFaces {

/// All but the first of each such pile: those of the first pile, ascending, then those of the next.
QVector<int> find(const KMMeshStore &mesh);

} // namespace KMOverlappedFaces

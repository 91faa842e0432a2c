#pragma once

#include "mesh/KMVertexMerge.h"

#include <QVector>

class KMMeshStore;

/// Vertices of a mesh that lie close together.
namespace KMCloseVertices {

/// What is to be merged so that no two vertices stay within the distance of each other, measured as they lie now: from
/// the first vertex on, each one goes into the first of the others that are still there. With selectedOnly the others
/// take no part. Nothing for a distance below 0. Takes time by the number of vertices, however many share a place.
QVector<KMVertexPair> find(const KMMeshStore &mesh, float distance, bool selectedOnly);

} // namespace KMCloseVertices

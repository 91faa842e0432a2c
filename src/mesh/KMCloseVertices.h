#pragma once

#include <QVector>

class KMMeshStore;

/// Vertices of a mesh that lie close together.
namespace KMCloseVertices {

struct Pair
{
    int remove;
    int keep;
};

/// What is to be merged so that no two vertices stay within the distance of each other, measured as they lie now: from
/// the first vertex on, each one goes into the first of the others that are still there. With selectedOnly the others
/// take no part. Nothing for a distance below 0. Takes time by the number of vertices, however many share a place.
QVector<Pair> find(const KMMeshStore &mesh, float distance, bool selectedOnly);

} // namespace KMCloseVertices

Q_DECLARE_TYPEINFO(KMCloseVertices::Pair, Q_PRIMITIVE_TYPE);

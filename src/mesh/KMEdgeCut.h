#pragma once

#include <QVector>

class KMMeshNode;

/// Where an edge is to be cut.
struct KMEdgeCut
{
    int a;
    int b;
    QVector<float> ratios; ///< 0 is a, 1 is b; what doesn't lie between them is left out
};

namespace KMMeshEdit {

/// Puts new vertices on edges and splits all faces on them, as several steps; the caller opens the macro. UVs, colours,
/// normals and shaders go along, crease weights are interpolated, and the parts of an edge keep what the edge had. A
/// quad with cuts in opposite sides becomes a strip of quads, one with the same cuts in all of its sides a grid; lines
/// become shorter lines.
///
/// Returns for each cut its vertices from a to b; none where the edge is missing or stood in the list before.
QVector<QVector<int>> cutEdges(KMMeshNode &mesh, const QVector<KMEdgeCut> &cuts);

} // namespace KMMeshEdit

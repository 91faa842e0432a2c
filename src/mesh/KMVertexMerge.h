#pragma once

#include <QVector>

class KMMeshNode;

/// Two vertices that become one.
struct KMVertexPair
{
    int remove;
    int keep;
};
Q_DECLARE_TYPEINFO(KMVertexPair, Q_PRIMITIVE_TYPE);

namespace KMMeshEdit {

/// Merges a vertex into another one of the mesh, which keeps its place, as one step "Merge Vertex". Faces between the
/// two close up: a quad becomes a triangle, also when the two are opposite corners; triangles and line polygons go.
/// UVs that the two had in such a face become one all around the kept vertex, so no seam opens there. Crease weights
/// and selected edges go along. Line polygons that come to lie on an edge of another face are dropped.
/// False, and no step, when the mesh is locked or the result of a modifier, a vertex is missing, or both are the same.
bool mergeVertex(KMMeshNode &mesh, int remove, int keep);

/// The same for many pairs, one after the other, as one step; in a time that goes by their number. A pair of which a
/// vertex is missing when its turn comes is passed over. Answers how many were merged; no step for none.
int mergeVertices(KMMeshNode &mesh, const QVector<KMVertexPair> &pairs);

} // namespace KMMeshEdit

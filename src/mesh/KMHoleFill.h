#pragma once

#include <QVector>

class KMMeshNode;

namespace KMMeshEdit {

/// Fills a closed polygon of vertices with triangles, as several steps; the caller opens the macro. They turn to the
/// side to which the faces around the hole turn, and take their UVs, colours and shaders. No new vertices. Returns the
/// new faces; none where the polygon encloses nothing, where it is filled already, and where one of its sides has faces
/// on both hands.
QVector<int> fillHole(KMMeshNode &mesh, const QVector<int> &polygon);

/// Fills what the selected edges enclose, hole by hole; rounds may touch at a vertex. Edges that hang together
/// otherwise fill nothing. Answers how many holes were filled.
int fillSelectedHoles(KMMeshNode &mesh);

} // namespace KMMeshEdit

#pragma once

#include <QVector>

class KMMeshNode;

namespace KMMeshEdit {

/// Fills a closed polygon of vertices with triangles, as several steps; the caller opens the macro. They turn to the
/// side to which the faces around the hole turn, and take their UVs, colours and shaders. No new vertices. Returns the
/// new faces; none where the polygon encloses nothing or a face fills it already.
QVector<int> fillHole(KMMeshNode &mesh, const QVector<int> &polygon);

/// Fills what the selected edges enclose, hole by hole. Edges that hang together and don't make a single round fill
/// nothing. Answers how many holes were filled.
int fillSelectedHoles(KMMeshNode &mesh);

} // namespace KMMeshEdit

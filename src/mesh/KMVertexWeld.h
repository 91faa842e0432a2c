#pragma once

#include <QVector>

class KMMeshNode;

namespace KMMeshEdit {

/// Merges vertices into the first of them, which moves to the mean of their places; as several steps, the caller opens
/// the macro. A single vertex is moved onto itself. False, and no step, for an empty list.
bool weldToMean(KMMeshNode &mesh, const QVector<int> &vertices);

/// Merges vertices that lie at the same place, each into the first that lies there. Answers how many went.
int weldSamePlace(KMMeshNode &mesh, const QVector<int> &vertices);

} // namespace KMMeshEdit

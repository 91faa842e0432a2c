#pragma once

#include "mesh/KMMeshSelect.h"

class QPolygonF;
class QRectF;

/// Selection by an area of the view, as one step of the history. Works on what the last frame left in the records:
/// window positions, and the marks of what is drawn.
///
/// Elements count when they are drawn and lie in the area with all of their corners; a vertex only with a face
/// that isn't hidden. Replace takes what lies elsewhere out of the selection. Only the kinds that the edit filter
/// names take part, of the chosen meshes that are visible and not locked.
namespace KMMarqueeSelect {

/// With a mesh given, only this one takes part. Answers -1 where that is locked, else 0. Replace with nothing in
/// the area changes nothing and makes no step.
int selectRect(const QRectF &rect, KMMeshSelect::Mode mode, KMMeshNode *only = nullptr);
int selectLasso(const QPolygonF &polygon, KMMeshSelect::Mode mode, KMMeshNode *only = nullptr); ///< crossings don't
                                                                                                ///< leave holes
} // namespace KMMarqueeSelect
